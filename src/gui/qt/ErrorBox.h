#pragma once

#include <string>

class QWidget;

namespace Tools::Qt
{

/// Shows a critical message box with an Ok button and waits for the user. The text is shown as
/// plain text: the name of a file or the answer of a server is never read as markup.
void showErrorBox(QWidget* parent, const std::string& title, const std::string& message);

} // namespace Tools::Qt
