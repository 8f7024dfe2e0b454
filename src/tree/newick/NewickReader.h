#pragma once

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <functional>
#include <stack>
#include <string>
#include <string_view>

namespace orvex
{

class Tree;
struct TextPlace;

/// Reads a tree in Newick form in one pass over its bytes. A reader serves one file: after a text
/// that was not complete it refuses another.
///
/// Three characters give the structure, "(", ")" and ",", and a ":" divides a token into name and
/// branch length. Every other byte is text of a token: blanks, quotes, square brackets and
/// semicolons too. Line ends are dropped, so a tree may be written on many lines. Text after the
/// ")" of the root is ignored. If a file has several trees, the root is that of the last one; the
/// nodes of the others are in the tree too, but the root does not reach them. Missing ")" at the
/// end are no error.
///
/// After the format described at https://phylipweb.github.io/phylip/newicktree.html, narrower in
/// that it has no quoting and no comments.
class NewickReader
{
public:
  /// \param isShown  whether the tree is to be shown, and the memory for that too is asked for
  ///                 before it is made
  explicit NewickReader(bool isShown = true) : _isShown(isShown) {}

  /// \return the tree, or null if the file has no "("
  /// \throws boost::filesystem::filesystem_error  if there is no such file
  /// \throws std::runtime_error  if it can't be opened or read, or a "," or ")" is outside
  /// \throws BadBranchLength, a boost::bad_lexical_cast, if a branch length is no number
  /// \throws std::logic_error  if an earlier text of this reader was not complete
  boost::shared_ptr<Tree> operator()(const std::string& filename);

  /// The same for text in memory.
  boost::shared_ptr<Tree> parseContents(const std::string& contents);

private:
  /// Tells a user's place of a byte of the text.
  using PlaceOf = std::function<TextPlace(std::size_t offset)>;

  boost::shared_ptr<Tree> _parse(const std::string& contents, const PlaceOf& placeOf);
  /// \param position  of the character in hand, also after an exception
  void _readEvents(const std::string& contents, std::size_t& position);
  // Each with the text before the character.
  void _onStructure(char c, std::string_view before);
  void _onOpenParentheses(std::string_view before);
  void _onComma(std::string_view before);
  void _onCloseParentheses(std::string_view before);
  void _finishItem(std::string_view token);
  void _parseAnnotation(int id, std::string_view token);

  boost::shared_ptr<Tree> _tree;
  std::stack<int> _nodeStack;
  // Text before a nested "(", which becomes the front of the next token.
  std::string _carried;
  std::size_t _expectedNodes = 0;
  bool _isShown;
  int _depth = 0;
  // The last structural character was a ")": the next token names the node just closed.
  bool _childClosed = false;
};

} // namespace orvex
