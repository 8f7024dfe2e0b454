#pragma once

class QMainWindow;
class QRect;

namespace Tools::Qt
{

/// The part of a window below its menu bar, in its coordinates.
QRect centralArea(const QMainWindow& window);

} // namespace Tools::Qt
