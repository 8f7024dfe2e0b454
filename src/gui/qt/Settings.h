#pragma once

#include <QVariant>

class QString;

/// The user's settings, under the organisation and application names that QCoreApplication has at
/// that moment. Each call opens the settings and closes them again.
namespace Tools::Qt
{

/// \return the stored value; an invalid one for a key that isn't stored
QVariant setting(const QString& key);
void setting(const QString& key, const QVariant& value);

} // namespace Tools::Qt
