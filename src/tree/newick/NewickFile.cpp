#include "tree/newick/NewickFile.h"

#include "foundation/progress/Work.h"
#include "tree/model/OpeningStages.h"
#include "tree/model/TreeMemory.h"

#include <boost/algorithm/string/case_conv.hpp>
#include <boost/filesystem/convenience.hpp>
#include <boost/filesystem/operations.hpp>

#include <algorithm>
#include <fstream>
#include <new>
#include <stdexcept>
#include <string_view>

namespace orvex
{
namespace Detail
{
namespace
{

// Gives the bytes of a file to a function, until it returns false. In pieces and not in lines: most
// trees are one line, which would be in memory twice.
template <class Take>
void readPieces(const std::string& filename, Take take)
{
  std::ifstream in(filename, std::ios_base::in);
  if (!in.is_open())
  {
    throw std::runtime_error("Could not open file.");
  }
  try
  {
    // So that a read error throws; without this the stream only stops.
    in.exceptions(std::ios_base::badbit);
    std::array<char, 65536> piece;
    while (in.read(piece.data(), piece.size()) || in.gcount() > 0)
    {
      if (!take(std::string_view(piece.data(), static_cast<std::size_t>(in.gcount()))))
      {
        return;
      }
    }
  }
  catch (const std::ios_base::failure&)
  {
    throw std::runtime_error("Could not read file.");
  }
}

std::string readWithoutLineEnds(const std::string& filename)
{
  const std::size_t size = boost::filesystem::file_size(boost::filesystem::path(filename));
  // Before the text is read. A small one is there sooner than the answer.
  constexpr std::size_t leastToAsk = std::size_t(1) << 20;
  if (size >= leastToAsk)
  {
    requireMemory("To read the file", size);
  }
  std::string text;
  text.reserve(size);
  Kelmar::Progress::Work work(OpeningStages::reading, size, 0.0, NewickFile::shareOfReading);
  readPieces(filename,
             [&](std::string_view piece)
             {
               for (std::size_t line = 0; line < piece.size();)
               {
                 const std::size_t end = std::min(piece.find('\n', line), piece.size());
                 text += piece.substr(line, end - line);
                 line = end + 1;
               }
               work.done(piece.size());
               return true;
             });
  return text;
}

} // namespace
} // namespace Detail

bool isNewickFile(const std::string& filename)
{
  const std::string extension =
      boost::algorithm::to_lower_copy(boost::filesystem::path(filename).extension().string());
  return std::any_of(newickEndings.begin(), newickEndings.end(),
                     [&](const std::string& ending) { return extension == "." + ending; });
}

std::string NewickFile::read() const
{
  try
  {
    return Detail::readWithoutLineEnds(_name);
  }
  catch (const std::bad_alloc&)
  {
    throw std::runtime_error("There is not enough memory for the text of the file.");
  }
}

TextPlace NewickFile::placeOf(std::size_t offset) const
{
  TextPlace place;
  Detail::readPieces(_name,
                     [&place, left = offset](std::string_view piece) mutable
                     {
                       for (const char c : piece)
                       {
                         if (c == '\n')
                         {
                           place = {place.line + 1, 1};
                           continue;
                         }
                         if (left-- == 0)
                         {
                           return false;
                         }
                         ++place.column;
                       }
                       return true;
                     });
  return place;
}

} // namespace orvex
