#include "render/gl/draw/Batch.h"

#include "render/gl/device/OpenGL.h"
#include "render/gl/draw/LineStrip.h"
#include "render/gl/draw/State.h"
#include "render/gl/draw/Triangle.h"
#include "support/Outcome.h"
#include "support/Polyline.h"
#include "support/RecordedOpenGL.h"

using namespace orvex::render;
using namespace orvex::render::gl;

/// A pass in which a strip draws its number of lines, each in a row of its own, and then proxies.
/// \return the drawing calls: what they draw, from where, how many vertices
static std::string drawn(const std::vector<unsigned int>& strips, int proxies = 0)
{
  const boost::intrusive_ptr<State> state(new State);
  state->viewport({0, 0, 10, 20000});
  double row = 0.5;
  std::istringstream calls(callsOf(
      [&]
      {
        state->batch().begin(state->viewport(), Kelmar::Math::Matrix44d());
        for (const unsigned int lines : strips)
        {
          std::vector<Polyline::Points> edges;
          for (; edges.size() < lines; row += 1.0)
          {
            edges.push_back({{2.5, row}, {7.5, row}});
          }
          LineStrip::make(edgesAlong(edges))->render(*state);
        }
        for (int i = 0; i < proxies; ++i)
        {
          boost::intrusive_ptr<Triangle>(new Triangle({}, {}))->render(*state);
        }
        state->batch().flush();
      }));
  std::string result;
  for (std::string line; std::getline(calls, line);)
  {
    result += line.find("glDrawArrays") == 0 ? line.substr(12) + ";" : "";
  }
  return result;
}

TEST(Batch, DrawsAFullBufferAtOnceAndThenWhatIsLeft)
{
  constexpr unsigned int full = Batch::capacity / 2;
  EXPECT_EQ(drawn({}), "");
  EXPECT_EQ(drawn({0, 0}), "");
  EXPECT_EQ(drawn({1, 0, 1}), " 0x1 0 0x4;");
  EXPECT_EQ(drawn({full - 1, 1}), " 0x1 0 0x1800;");
  EXPECT_EQ(drawn({full, 1}), " 0x1 0 0x1800; 0x1 0 0x2;");
  EXPECT_EQ(drawn({2 * full + 5}), " 0x1 0 0x1800; 0x1 0 0x1800; 0x1 0 0xa;") << "one strip";
  EXPECT_EQ(drawn({}, Batch::capacity / 3), " 0x4 0 0x1800;");
  EXPECT_EQ(drawn({3}, Batch::capacity / 3 + 1), " 0x1 0 0x6; 0x4 0 0x1800; 0x4 0 0x3;");
}
