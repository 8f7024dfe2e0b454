#pragma once

#include <boost/filesystem/path.hpp>
#include <boost/shared_ptr.hpp>

#include <iosfwd>
#include <string>
#include <vector>

namespace orvex
{
class Tree;
}

namespace orvex::service
{

/// The Newick files (".tre", ".nwk") that lie directly in a folder, as they were at the start.
///
/// A file's id is its place in the sorted list of names, from 1. A file that can't be read is not
/// listed but keeps its number. A link to a file outside the folder is ignored.
class TreeFolder
{
public:
  /// Reads each file once, to find out whether it is a tree.
  /// \param warnings  gets a line for each file left out
  /// \throws std::runtime_error  if there is no such folder or it can't be read
  TreeFolder(const std::string& folder, std::ostream& warnings);

  /// Number of files that are trees.
  std::size_t size() const { return _rows.size(); }

  /// The answer to a request for the list, in JSON.
  std::string list() const;

  /// Reads a file again.
  /// \param id  in decimal, as a request gives it
  /// \return null if no listed file has that id
  /// \throws std::exception  if the file can't be read any more
  boost::shared_ptr<Tree> tree(const std::string& id) const;

private:
  struct Row
  {
    std::string id;
    boost::filesystem::path file;
  };

  boost::shared_ptr<Tree> _read(const boost::filesystem::path& file) const;

  boost::filesystem::path _folder;
  std::vector<Row> _rows;
};

} // namespace orvex::service
