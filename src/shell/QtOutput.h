#pragma once

#include <QtGlobal>

namespace Helper
{

/// Writes a message of Qt to std::cout, in one insertion, behind a prefix for its level. Lets no
/// exception pass into Qt. Ending the process after a fatal message is left to Qt.
/// \param message  in UTF-8; null writes nothing
void qtOutput(QtMsgType type, const char* message);

/// Makes qtOutput the handler of all messages of Qt.
void installQtOutput();

} // namespace Helper
