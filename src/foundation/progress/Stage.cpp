#include "foundation/progress/Stage.h"

namespace Kelmar::Progress
{
namespace Detail
{
namespace
{

struct Row
{
  const char* text;
  // Which part of the whole the stage is.
  double begin, end;
};

constexpr Row rows[] = {{"Reading the file", 0.0, 0.14},
                        {"Computing the layout", 0.14, 0.35},
                        {"Building the scene", 0.35, 0.77},
                        {"Drawing the first picture", 0.77, 1.0},
                        {"Writing the tree", 0.0, 1.0}};

const Row& row(Stage stage)
{
  return rows[static_cast<unsigned int>(stage)];
}

} // namespace
} // namespace Detail

const char* textOf(Stage stage)
{
  return Detail::row(stage).text;
}

double shareOfWhole(Stage stage, double share)
{
  const Detail::Row& row = Detail::row(stage);
  return row.begin + share * (row.end - row.begin);
}

} // namespace Kelmar::Progress
