#include "paper/OutputFile.h"

#include "gui/qt/Strings.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <csignal>
#include <stdexcept>

namespace orvex::paper
{

namespace Detail
{
namespace
{

std::unique_ptr<QFileDevice> makeFile(const QString& path)
{
  const QFileInfo there(path);
  if (there.exists() && !there.isFile())
  {
    std::signal(SIGPIPE, SIG_IGN); // a pipe without a reader is a failure like others
    return std::make_unique<QFile>(path);
  }
  return std::make_unique<QSaveFile>(path);
}

} // namespace
} // namespace Detail

OutputFile::OutputFile(const std::string& name)
    : _name(name), _file(Detail::makeFile(Tools::Qt::fileName(name))), _device(*_file)
{
  if (!_file->open(QIODevice::WriteOnly))
  {
    _fail();
  }
  _device.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

qint64 OutputFile::Device::writeData(const char* data, qint64 size)
{
  for (qint64 written = 0; written < size && !_hasFailed;)
  {
    const qint64 more = _file.write(data + written, size - written);
    _hasFailed = more <= 0;
    written += more;
  }
  return _hasFailed ? -1 : size;
}

void OutputFile::finish()
{
  if (_device.hasFailed() || !_close())
  {
    _fail();
  }
}

bool OutputFile::_close()
{
  auto* const replacing = dynamic_cast<QSaveFile*>(_file.get());
  return replacing ? replacing->commit() : _file->flush();
}

void OutputFile::_fail() const
{
  throw std::runtime_error("can't write '" + _name + "': " + Tools::Qt::text(_file->errorString()));
}

} // namespace orvex::paper
