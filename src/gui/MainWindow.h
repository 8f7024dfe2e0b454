#pragma once

#include <boost/core/noncopyable.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <QMainWindow>

#include <functional>
#include <string>

class Ui_MainWindow;

namespace orvex
{
class Document;
}

namespace Lumbra
{

class Viewer;

/// The program's window: a menu bar and the viewer of at most one tree. Its size and place are kept
/// in the user's settings.
class MainWindow : public QMainWindow, private boost::noncopyable
{
  Q_OBJECT

public:
  MainWindow();
  ~MainWindow() override;

signals:
  /// Whether there is a viewer for the actions that need one. Only the constructor emits false.
  void viewerIsValid(bool valid);
  /// The file is opened later.
  void newickFileDropped(const QString& name);

protected:
  /// Closes the shown tree.
  virtual void _documentNew();
  /// Asks for a file and opens it in place of the shown tree.
  virtual void _documentOpen();
  /// Reads a file and shows its tree; a failure shows a box.
  /// \param name  in the file system's encoding
  virtual void _documentOpen(const std::string& name);

  /// One Newick file is taken; anything else is refused by the pointer's shape.
  void dragEnterEvent(QDragEnterEvent* event) override;
  /// Opens the file when the drag is over, as after the dialog.
  void dropEvent(QDropEvent* event) override;

private slots:
  void on_actionOpen_triggered() { _documentOpen(); }
  void on_actionOpen_from_orvex_Halvane_triggered() { _documentOpenFromHalvane(); }
  void on_actionExport_Image_triggered() { _exportImage(); }
  void on_actionInfo_triggered() { _showTreeInfo(); }
  void on_actionAlways_Show_Tree_triggered() { _toggleAlwaysShowHighLod(); }
  void on_actionAbout_triggered() { _about(); }

private:
  void _destroy();
  /// Asks the tree service for its list and shows the tree that the user picks. The shown tree
  /// stays until the new one is in. Both downloads block the window.
  /// \throws what the downloads throw
  void _documentOpenFromHalvane();
  void _documentClose();
  /// Opens a file in place of the shown tree, which is gone whatever comes of it.
  void _replaceByFile(const std::string& name);
  /// Loads a tree with a new document and shows it, in place of the shown one. Meanwhile there is a
  /// wait cursor and, from half a second on, a bar. What the user does in that time is dropped, but
  /// Escape and the close button end it: without a failure the shown tree stays, if there is one.
  /// \param name  of the tree, for the user
  /// \throws what \p load and the making of the viewer throw
  void _show(const QString& name, const std::function<void(orvex::Document&)>& load);
  /// Paints the window and the shown tree at once, before what keeps the program from painting.
  /// \return false if the window was closed meanwhile
  bool _repaint();
  /// Makes a viewer for a document's tree, which then replaces the central widget. It is still
  /// hidden.
  /// \param document  null leaves the viewer empty
  void _createGui(boost::intrusive_ptr<orvex::Document> document);
  void _showErrorMessage(std::string title, std::string text);
  void _exportImage();
  void _showTreeInfo();
  void _toggleAlwaysShowHighLod();
  void _about();

  Ui_MainWindow* _ui;
  // The central widget, owned by Qt as such; null while no tree is shown.
  Viewer* _viewer = nullptr;
};

} // namespace Lumbra
