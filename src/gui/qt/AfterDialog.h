#pragma once

class QWidget;

namespace Tools::Qt
{

/// Paints a window at once after a dialog or a menu in front of it was closed, so that no remains
/// of it are seen while the program is too busy to paint. Handles no event of the user; all is done
/// within a tenth of a second.
/// \return false if the window was closed meanwhile
bool repaintAfterDialog(QWidget& window);

} // namespace Tools::Qt
