#include "gui/OpeningProgress.h"

#include "foundation/guard/NoThrow.h"
#include "gui/qt/DiscardedInput.h"
#include "gui/qt/Strings.h"

#include <QFileInfo>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QProgressBar>
#include <QVBoxLayout>

#include <initializer_list>

namespace Lumbra
{
namespace Detail
{
namespace
{

constexpr int wholeBar = 1000;
// In units of the window.
constexpr int mostWidth = 400;
constexpr int margin = 20;

QRect centralArea(const QMainWindow& window)
{
  QRect area = window.contentsRect();
  const QWidget* menu = window.menuWidget();
  if (menu && menu->isVisibleTo(&window)) // a desktop may show it in another place
  {
    area.setTop(menu->geometry().bottom() + 1);
  }
  return area;
}

QString shortened(const QString& text, const QWidget& widget, int width)
{
  return widget.fontMetrics().elidedText(text, ::Qt::ElideMiddle, width);
}

} // namespace
} // namespace Detail

OpeningProgress::OpeningProgress(QMainWindow& window, const std::string& name)
    : _area(&window),
      _name(new QLabel),
      _stage(new QLabel),
      _bar(new QProgressBar),
      _listening(*this)
{
  _area.setGeometry(Detail::centralArea(window));
  _area.setAutoFillBackground(true);
  const int width = qMax(1, qMin(Detail::mostWidth, size().width() - 2 * Detail::margin));
  _bar->setRange(0, Detail::wholeBar);
  _stage->setAlignment(::Qt::AlignHCenter);
  _name->setAlignment(::Qt::AlignHCenter);
  _name->setTextFormat(::Qt::PlainText);
  _name->setText(Detail::shortened(QFileInfo(Tools::Qt::fileName(name)).fileName(), *_name, width));
  auto* const column = new QVBoxLayout(&_area);
  column->addStretch();
  for (QWidget* widget : std::initializer_list<QWidget*>{_name, _bar, _stage})
  {
    widget->setFixedWidth(width);
    column->addWidget(widget, 0, ::Qt::AlignHCenter);
  }
  column->addStretch();
}

OpeningProgress::~OpeningProgress()
{
  Kelmar::Functions::noThrow(&Tools::Qt::DiscardedInput::discard, "5127730964");
}

void OpeningProgress::show(Kelmar::Progress::Stage stage, double share)
{
  const QString text = Kelmar::Progress::textOf(stage);
  const bool changed = _stage->text() != text;
  _stage->setText(text);
  if (!_area.isVisible())
  {
    _area.setVisible(true);
    _area.raise();
    _area.repaint();
  }
  else if (changed)
  {
    _stage->repaint();
  }
  // It paints itself at once if the share is another one in pixels.
  _bar->setValue(int(share * Detail::wholeBar));
}

} // namespace Lumbra
