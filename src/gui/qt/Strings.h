#pragma once

#include <QFile>
#include <QString>

#include <string>

/// Converts between std::string and Qt's strings. No other code does.
namespace Tools::Qt
{

/// Texts are converted as UTF-8.
inline QString text(const std::string& value)
{
  return QString::fromStdString(value);
}

inline std::string text(const QString& value)
{
  return value.toStdString();
}

/// File names are converted by the file system's own encoding, so that a name that came from the
/// file system names the same file again.
inline QString fileName(const std::string& value)
{
  return QFile::decodeName(QByteArray::fromStdString(value));
}

inline std::string fileName(const QString& value)
{
  return QFile::encodeName(value).toStdString();
}

} // namespace Tools::Qt
