#pragma once

class QWidget;

/// The place and size that a window had when the program was last used, in the user's settings.
namespace Tools::Qt
{

/// Leaves the window as it is if nothing of use is stored.
void restoreWindowGeometry(QWidget& window);
void saveWindowGeometry(const QWidget& window);

} // namespace Tools::Qt
