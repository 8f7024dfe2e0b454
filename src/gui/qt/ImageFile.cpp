#include "gui/qt/ImageFile.h"

#include "gui/qt/Strings.h"

#include <boost/core/noncopyable.hpp>

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>

#include <csignal>

namespace Tools::Qt
{
namespace Detail
{
namespace
{

/// Until the end of the scope a pipe without a reader is a failure and does not end the process.
class NoPipeSignal : private boost::noncopyable
{
public:
  NoPipeSignal() : _before(std::signal(SIGPIPE, SIG_IGN)) {}
  ~NoPipeSignal() { std::signal(SIGPIPE, _before); }

private:
  void (*_before)(int);
};

/// \return why it can't be done; empty if it is done
QString write(const QByteArray& bytes, QFileDevice& file)
{
  if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
  {
    return QString();
  }
  return file.error() == QFileDevice::NoError ? "it took a part of it only" : file.errorString();
}

QString replaceFile(const QByteArray& bytes, const QString& path)
{
  QSaveFile file(path);
  file.setDirectWriteFallback(true);
  const QString failure = write(bytes, file);
  return failure.isEmpty() && !file.commit() ? file.errorString() : failure;
}

QString writeThrough(const QByteArray& bytes, const QString& path)
{
  const NoPipeSignal noSignal;
  QFile file(path);
  return write(bytes, file);
}

} // namespace
} // namespace Detail

std::string saveImage(const QImage& image, const std::string& name)
{
  const QString path = fileName(name);
  const QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
  // Without a format the writer would choose one by itself.
  if (!QImageWriter::supportedImageFormats().contains(format))
  {
    return format.startsWith("tif") ? "Qt's TIFF writer is not installed"
                                    : "Qt writes no pictures of this kind";
  }
  // Encoded before the file is opened, so that only the disk can fail while a file is overwritten.
  QBuffer encoded;
  if (!encoded.open(QIODevice::WriteOnly) || !image.save(&encoded, format.constData()))
  {
    return "it can't be encoded";
  }
  // A pipe or a device is no file that another one could take the place of.
  const QFileInfo there(path);
  return text(there.exists() && !there.isFile() ? Detail::writeThrough(encoded.data(), path)
                                                : Detail::replaceFile(encoded.data(), path));
}

} // namespace Tools::Qt
