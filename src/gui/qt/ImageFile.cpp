#include "gui/qt/ImageFile.h"

#include "gui/qt/Strings.h"

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
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && image.save(&file, format.constData()) && file.commit();
}

} // namespace Tools::Qt
