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
  // A writer that is given no format would choose one itself.
  if (!QImageWriter::supportedImageFormats().contains(format))
  {
    return false;
  }
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && image.save(&file, format.constData()) && file.commit();
}

} // namespace Tools::Qt
