// What the converter makes of any bytes, the viewer's own reader reads, with as many leaves.
#include "Require.h"
#include "convert/Conversion.h"
#include "tree/model/Tree.h"
#include "tree/newick/NewickReader.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace
{

using namespace orvex::convert;

std::size_t leavesOfFirst(const std::string& text)
{
  std::stringbuf bytes(text);
  Source source(bytes);
  std::ostringstream listed;
  list(source, listed);
  std::istringstream fields(listed.str());
  std::size_t number = 0;
  std::size_t leaves = 0;
  fields >> number >> leaves;
  return leaves;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
  try
  {
    const std::string text(reinterpret_cast<const char*>(data), size);
    std::stringbuf bytes(text);
    Source source(bytes);
    const Conversion conversion = convert(source, {"1", false});
    const auto tree = orvex::NewickReader().parseContents(conversion.text);
    require(tree && tree->getNumberOfLeafNodes() == leavesOfFirst(text), "all leaves come along");
  }
  catch (const std::runtime_error&)
  {
  }
  return 0;
}
