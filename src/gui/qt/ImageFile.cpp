#include "gui/qt/ImageFile.h"

#include "gui/qt/Strings.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>

namespace Tools::Qt
{

bool saveImage(const QImage& image, const std::string& name)
{
  const QString path = fileName(name);
  const QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
  // Without a format the writer would choose one by itself.
  if (!QImageWriter::supportedImageFormats().contains(format))
  {
    return false;
  }
  // Encoded before the file is opened, so that only the disk can fail while a file is overwritten.
  QBuffer encoded;
  if (!encoded.open(QIODevice::WriteOnly) || !image.save(&encoded, format.constData()))
  {
    return false;
  }
  QSaveFile file(path);
  file.setDirectWriteFallback(true);
  return file.open(QIODevice::WriteOnly) && file.write(encoded.data()) == encoded.size() &&
         file.commit();
}

} // namespace Tools::Qt
