#include "gui/OpeningProgress.h"

#include "foundation/guard/NoThrow.h"
#include "foundation/progress/Stopped.h"
#include "gui/qt/CentralArea.h"
#include "gui/qt/DiscardedInput.h"

#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

#include <initializer_list>

namespace Lumbra
{
namespace Detail
{
namespace
{

constexpr int wholeBar = 1000;
// In pixels that do not depend on the display's scale.
constexpr int mostWidth = 400;
constexpr int margin = 20;
// By then a first frame is surely on the screen.
constexpr int firstFrameMilliseconds = 1000;

QString shortened(const QString& text, const QWidget& widget, int width)
{
  return widget.fontMetrics().elidedText(text, ::Qt::ElideMiddle, width);
}

} // namespace
} // namespace Detail

OpeningProgress::OpeningProgress(QMainWindow& window, const QString& name)
    : _window(window),
      _area(new QWidget(&window)),
      _name(new QLabel),
      _stage(new QLabel),
      _bar(new QProgressBar),
      _request(window),
      _listening(*this)
{
  const QRect area = Tools::Qt::centralArea(window);
  _area->setGeometry(area);
  _area->setAutoFillBackground(true);
  const int width = qMax(1, qMin(Detail::mostWidth, area.width() - 2 * Detail::margin));
  _bar->setRange(0, Detail::wholeBar);
  _stage->setAlignment(::Qt::AlignHCenter);
  _name->setAlignment(::Qt::AlignHCenter);
  _name->setTextFormat(::Qt::PlainText);
  _name->setText(Detail::shortened(name, *_name, width));
  auto* const column = new QVBoxLayout(_area);
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
  if (!_isHandedOver)
  {
    delete _area;
  }
  if (_covered && _covered == _window.centralWidget())
  {
    _covered->show();
  }
}

void OpeningProgress::show(const Kelmar::Progress::Stage& stage, double share)
{
  const QString text = QString("%1 (Esc stops it)").arg(stage.text);
  _area->setGeometry(Tools::Qt::centralArea(_window)); // the window may have another size by now
  const bool changed = _stage->text() != text;
  _stage->setText(text);
  if (!_area->isVisible())
  {
    _appear();
  }
  else if (changed)
  {
    _stage->repaint();
  }
  // It paints itself at once if the share is another one in pixels.
  _bar->setValue(int(share * Detail::wholeBar));
  _request.look();
  if (wish() != Tools::Qt::StopRequest::Wish::none)
  {
    throw Kelmar::Progress::Stopped();
  }
}

void OpeningProgress::reveal(QWidget& viewer)
{
  if (!_area->isVisible()) // then a bar would come too late
  {
    qDeleteAll(_area->findChildren<QWidget*>());
    _area->show();
  }
  viewer.show();
  _area->raise();
  _isHandedOver = true;
  QObject::connect(&viewer, &QObject::destroyed, _area, &QWidget::hide);
  QTimer::singleShot(Detail::firstFrameMilliseconds, _area, SLOT(deleteLater()));
}

void OpeningProgress::_appear()
{
  QWidget* const shown = _window.centralWidget();
  // It has a window of its own, which would stand above everything that is painted in the other.
  if (shown && shown->isVisible())
  {
    _covered = shown;
    shown->hide();
  }
  _area->setVisible(true);
  _area->raise();
  _area->repaint();
}

} // namespace Lumbra
