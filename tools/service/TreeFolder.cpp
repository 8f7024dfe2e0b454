#include "service/TreeFolder.h"

#include "service/TreeJson.h"
#include "tree/model/Tree.h"
#include "tree/newick/NewickFile.h"
#include "tree/newick/NewickReader.h"

#include <boost/filesystem/operations.hpp>

#include <algorithm>
#include <ostream>
#include <stdexcept>

namespace orvex::service
{
namespace Detail
{
namespace
{

std::vector<boost::filesystem::path> newickFiles(const boost::filesystem::path& folder)
{
  std::vector<boost::filesystem::path> files;
  for (const auto& entry : boost::filesystem::directory_iterator(folder))
  {
    if (isNewickFile(entry.path().string()))
    {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

} // namespace
} // namespace Detail

TreeFolder::TreeFolder(const std::string& folder, std::ostream& warnings)
{
  if (!boost::filesystem::is_directory(folder))
  {
    throw std::runtime_error("there is no folder " + folder);
  }
  _folder = boost::filesystem::canonical(folder);
  std::size_t number = 0;
  for (const boost::filesystem::path& file : Detail::newickFiles(_folder))
  {
    ++number;
    try
    {
      _read(file);
      _rows.push_back({std::to_string(number), file});
    }
    catch (const std::exception& e)
    {
      warnings << file.string() << " is left out: " << e.what() << std::endl;
    }
  }
}

std::string TreeFolder::list() const
{
  std::string json = "[";
  for (const Row& row : _rows)
  {
    json += json.size() > 1 ? "," : "";
    json += "{\"id\":" + row.id + ",\"treeName\":" + toJson(row.file.stem().string()) + "}";
  }
  return json + "]";
}

boost::shared_ptr<Tree> TreeFolder::tree(const std::string& id) const
{
  const auto row =
      std::find_if(_rows.begin(), _rows.end(), [&](const Row& r) { return r.id == id; });
  return row == _rows.end() ? nullptr : _read(row->file);
}

boost::shared_ptr<Tree> TreeFolder::_read(const boost::filesystem::path& file) const
{
  // Checked for each request, since a link can change while the service runs.
  const boost::filesystem::path real = boost::filesystem::canonical(file);
  const auto [folderEnd, place] =
      std::mismatch(_folder.begin(), _folder.end(), real.begin(), real.end());
  if (folderEnd != _folder.end())
  {
    throw std::runtime_error("it leads out of the folder");
  }
  // Only regular files: reading a pipe could wait forever.
  if (!boost::filesystem::is_regular_file(real))
  {
    throw std::runtime_error("it is no regular file");
  }
  NewickReader reader(false);
  boost::shared_ptr<Tree> tree = reader(real.string());
  if (!tree)
  {
    throw std::runtime_error("it holds no tree");
  }
  return tree;
}

} // namespace orvex::service
