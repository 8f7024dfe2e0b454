#pragma once

#include "paper/TreeScene.h"
#include "paper/Typeface.h"
#include "snapshot/Request.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <string>
#include <vector>

namespace orvex::paper
{
class Canvas;
}

namespace orvex::snapshot
{

/// A tree as a document, for print. Needs a QGuiApplication, but no display.
class Document
{
public:
  /// Lays the tree out.
  /// \throws std::runtime_error  if the font library can't start
  Document(const boost::shared_ptr<Tree>& tree, const Request& request);

  /// \return what the user must know of the document, in a sentence each
  /// \throws std::runtime_error  if the document can't be written
  std::vector<std::string> write();

private:
  std::unique_ptr<paper::Canvas> _makeCanvas();
  void _drawView(paper::Canvas& canvas);
  void _drawWhole(paper::Canvas& canvas);
  void _noteMissingCharacters();

  const Request& _request;
  paper::TreeScene _scene;
  paper::Typeface _typeface;
  std::vector<std::string> _notes;
};

} // namespace orvex::snapshot
