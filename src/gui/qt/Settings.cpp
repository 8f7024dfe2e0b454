#include "gui/qt/Settings.h"

#include <QCoreApplication>
#include <QSettings>

namespace Tools::Qt
{

QVariant setting(const QString& key)
{
  return QSettings(QSettings::IniFormat, QSettings::UserScope, QCoreApplication::organizationName(),
                   QCoreApplication::applicationName())
      .value(key);
}

void setting(const QString& key, const QVariant& value)
{
  QSettings(QSettings::IniFormat, QSettings::UserScope, QCoreApplication::organizationName(),
            QCoreApplication::applicationName())
      .setValue(key, value);
}

} // namespace Tools::Qt
