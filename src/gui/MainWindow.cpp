#include "gui/MainWindow.h"

#include "foundation/guard/Guarded.h"
#include "foundation/guard/NoThrow.h"
#include "gui/AboutText.h"
#include "gui/NewickFiles.h"
#include "gui/OpeningProgress.h"
#include "gui/TreeListDialog.h"
#include "gui/Viewer.h"
#include "gui/qt/AfterDialog.h"
#include "gui/qt/CentralArea.h"
#include "gui/qt/ErrorBox.h"
#include "gui/qt/FileDialog.h"
#include "gui/qt/Strings.h"
#include "gui/qt/WaitCursor.h"
#include "gui/qt/WindowGeometry.h"
#include "render/camera/DisplaySettings.h"
#include "render/gl/font/FreeType.h"
#include "tree/Document.h"
#include "tree/model/Tree.h"
#include "tree/service/TreeData.h"
#include "tree/service/TreeList.h"
#include "ui_MainWindow.h"

#include <boost/bind/bind.hpp>

#include <QCoreApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QMessageBox>

#include <iostream>
#include <memory>
#include <sstream>

namespace Lumbra
{
namespace Detail
{
namespace
{

using Kelmar::Functions::guarded;

} // namespace
} // namespace Detail

MainWindow::MainWindow() : _ui(new Ui_MainWindow)
{
  _ui->setupUi(this);
  connect(_ui->actionQuit, &QAction::triggered, this, &QWidget::close);
  for (QAction* action : {_ui->actionExport_Image, _ui->actionInfo, _ui->actionAlways_Show_Tree})
  {
    connect(this, &MainWindow::viewerIsValid, action, &QAction::setEnabled);
  }
  emit viewerIsValid(false);
  setAcceptDrops(true);
  // The program that the file comes from waits until the event is handled.
  connect(
      this, &MainWindow::newickFileDropped, this,
      [this](const QString& name) { _replaceByFile(Tools::Qt::fileName(name)); },
      ::Qt::QueuedConnection);
  setWindowTitle(QCoreApplication::applicationName());
  setWindowIcon(QIcon(":/Images/tesmar_icon.gif"));
  Tools::Qt::restoreWindowGeometry(*this);
}

MainWindow::~MainWindow()
{
  Kelmar::Functions::noThrow(boost::bind(&MainWindow::_destroy, this), "2445711089");
}

void MainWindow::_destroy()
{
  Tools::Qt::saveWindowGeometry(*this);
  delete _ui;
  _ui = nullptr;
  _documentClose();
  // A viewer that was replaced may not be deleted yet. Its fonts must be released before FreeType.
  qDeleteAll(findChildren<QGLWidget*>(QString(), ::Qt::FindDirectChildrenOnly));
  orvex::render::gl::FreeType::destroy();
}

void MainWindow::_documentNew()
{
  Detail::guarded([this] { _documentClose(); }, "6250838000", std::cout);
}

void MainWindow::_documentClose()
{
  delete _viewer;
  _viewer = nullptr;
}

void MainWindow::_documentOpen()
{
  Detail::guarded(
      [this]
      {
        const std::string name =
            Tools::Qt::FileDialog::getOpenFileName(this, "Open", newickFilters());
        if (!name.empty())
        {
          _replaceByFile(name);
        }
      },
      "2020255221", std::cout);
}

void MainWindow::_replaceByFile(const std::string& name)
{
  // Before the new file is read, so that memory has to hold one large tree only.
  _documentClose();
  if (_repaint())
  {
    _documentOpen(name);
  }
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
  acceptNewickFile(*event);
}

void MainWindow::dropEvent(QDropEvent* event)
{
  const std::string name = acceptNewickFile(*event);
  if (!name.empty())
  {
    emit newickFileDropped(Tools::Qt::fileName(name));
  }
}

void MainWindow::_documentOpen(const std::string& name)
{
  std::ostringstream errors;
  Detail::guarded(
      [&]
      {
        _show(QFileInfo(Tools::Qt::fileName(name)).fileName(),
              [&name](orvex::Document& document) { document.read(name); });
      },
      "2991944830", errors);
  if (!errors.str().empty())
  {
    const std::string shown = Tools::Qt::text(Tools::Qt::fileName(name));
    _showErrorMessage("Error Loading File " + shown, errors.str());
  }
}

void MainWindow::_documentOpenFromHalvane()
{
  std::vector<boost::shared_ptr<orvex::TreeData>> trees;
  _repaint();
  orvex::downloadTreeList(trees);
  TreeListDialog dialog(trees, this);
  if (dialog.exec() == 0)
  {
    return;
  }
  orvex::TreeData selected;
  if (!dialog.getSelectedTree(selected) || !_repaint())
  {
    return;
  }
  _show(Tools::Qt::text(selected.name),
        [&selected](orvex::Document& document) { document.loadFromHalvane(selected.id); });
}

void MainWindow::_show(const QString& name, const std::function<void(orvex::Document&)>& load)
{
  using Wish = Tools::Qt::StopRequest::Wish;
  const Tools::Qt::WaitCursor cursor;
  OpeningProgress progress(*this, name);
  try
  {
    const boost::intrusive_ptr<orvex::Document> document(new orvex::Document);
    load(*document);
    _createGui(document);
    progress.reveal(*_viewer);
  }
  catch (...)
  {
    progress.lookAgain(); // a close would be lost behind the box that follows
    if (progress.wish() == Wish::none)
    {
      throw;
    }
  }
  if (progress.wish() == Wish::close)
  {
    close();
  }
}

bool MainWindow::_repaint()
{
  const bool isOpen = Tools::Qt::repaintAfterDialog(*this);
  if (_viewer)
  {
    _viewer->repaint();
  }
  return isOpen;
}

void MainWindow::_createGui(boost::intrusive_ptr<orvex::Document> document)
{
  auto viewer = std::make_unique<Viewer>(this, Tools::Qt::centralArea(*this));
  viewer->hide();
  if (document)
  {
    viewer->tree(document->getTree());
    viewer->updateScene();
    viewer->prepare();
  }
  // When all is made, since the widget that it replaces goes.
  _viewer = viewer.release();
  setCentralWidget(_viewer);
  if (document)
  {
    emit viewerIsValid(true);
  }
}

void MainWindow::_showErrorMessage(std::string title, std::string text)
{
  Tools::Qt::showErrorBox(this, title, text);
}

void MainWindow::_exportImage()
{
  if (!_viewer)
  {
    return;
  }
  const Tools::Qt::FileDialog::Filters filters{{"JPEG Image (*.jpg)", "*.jpg"},
                                               {"PNG Image (*.png)", "*.png"},
                                               {"BMP Image (*.bmp)", "*.bmp"},
                                               {"TIF Image (*.tif)", "*.tif"}};
  const std::string name = Tools::Qt::FileDialog::getSaveFileName(this, "Export Image", filters);
  if (!name.empty())
  {
    _viewer->writeImageFile(name);
  }
}

void MainWindow::_showTreeInfo()
{
  if (!_viewer)
  {
    return;
  }
  const boost::shared_ptr<orvex::Tree> tree = _viewer->tree();
  const unsigned int leaves = tree ? tree->getNumberOfLeafNodes() : 0;
  const unsigned int nodes = tree ? tree->getNumberOfNodes() : 0;
  std::ostringstream out;
  out << "Number of nodes: " << nodes << "\nNumber of leaves: " << leaves;
  QMessageBox::information(this, "Tree info", Tools::Qt::text(out.str()), QMessageBox::Ok);
}

void MainWindow::_toggleAlwaysShowHighLod()
{
  orvex::render::DisplaySettings* settings = _viewer ? _viewer->settings() : nullptr;
  if (!settings)
  {
    // Qt has toggled the mark; nothing changed, so it is toggled back.
    _ui->actionAlways_Show_Tree->setChecked(!_ui->actionAlways_Show_Tree->isChecked());
    return;
  }
  settings->alwaysUseHighLod(!settings->alwaysUseHighLod());
  _viewer->update();
  _ui->actionAlways_Show_Tree->setCheckable(true);
  _ui->actionAlways_Show_Tree->setChecked(settings->alwaysUseHighLod());
}

void MainWindow::_about()
{
  QMessageBox::about(this, "About", aboutText);
}

} // namespace Lumbra
