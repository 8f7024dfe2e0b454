#pragma once

#include <QtGlobal>

#include <string>

namespace Helper
{

/// Writes a message of Qt to std::cout, after a prefix for its level and with a single insertion.
/// Throws nothing. After a fatal message Qt itself ends the process.
/// \param message  in UTF-8; null writes nothing
void qtOutput(QtMsgType type, const char* message);

/// Makes qtOutput the handler of all messages of Qt. The fatal one of an application object that
/// can reach no display, or load no plugin for it, then ends the process by TerminationReport::end.
/// \param log  where the user finds what qtOutput writes
void installQtOutput(const std::string& log);

} // namespace Helper
