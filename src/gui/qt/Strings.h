#pragma once

#include <QFile>
#include <QString>

#include <string>

/// The one crossing between the narrow strings below the windows and Qt's strings.
namespace Tools::Qt
{

/// Texts cross as UTF-8.
inline QString text(const std::string& value)
{
  return QString::fromStdString(value);
}

inline std::string text(const QString& value)
{
  return value.toStdString();
}

/// File names cross in the file system's own encoding, so that each name leads back to its file.
inline QString fileName(const std::string& value)
{
  return QFile::decodeName(QByteArray::fromStdString(value));
}

inline std::string fileName(const QString& value)
{
  return QFile::encodeName(value).toStdString();
}

} // namespace Tools::Qt
