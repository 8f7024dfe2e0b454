#pragma once

#include <boost/core/noncopyable.hpp>

#include <QFileDevice>

#include <memory>
#include <string>

namespace orvex::paper
{

/// A file that gets its name when it is complete: until then, and after a failure, an earlier file
/// of that name is unchanged. A pipe or a device is written to.
class OutputFile : private boost::noncopyable
{
public:
  /// \throws std::runtime_error  if the file can't be created
  explicit OutputFile(const std::string& name);

  /// To write to, with any failure remembered.
  QIODevice& device() { return _device; }
  /// \throws std::runtime_error  if what was written before, or this step, failed
  void finish();

private:
  /// Writes all or fails. The file itself may write a part and tell nothing, and who writes a
  /// document may not look.
  class Device : public QIODevice
  {
  public:
    explicit Device(QFileDevice& file) : _file(file) {}

    bool hasFailed() const { return _hasFailed; }
    bool isSequential() const override { return true; }

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override;

  private:
    QFileDevice& _file;
    bool _hasFailed = false;
  };

  bool _close();
  [[noreturn]] void _fail() const;

  std::string _name;
  std::unique_ptr<QFileDevice> _file;
  Device _device;
};

} // namespace orvex::paper
