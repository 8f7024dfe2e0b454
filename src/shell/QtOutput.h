#pragma once

#include <QtGlobal>

namespace Helper
{

/// Writes a message of Qt to std::cout, after a prefix for its level and with a single insertion.
/// Throws nothing. After a fatal message Qt itself ends the process.
/// \param message  in UTF-8; null writes nothing
void qtOutput(QtMsgType type, const char* message);

/// Makes qtOutput the handler of all messages of Qt. The fatal one of an application object that
/// can reach no display then ends the process by TerminationReport::end.
void installQtOutput();

} // namespace Helper
