#pragma once

#include <string>

namespace Kelmar::Base::Ref
{

/// A reference count that notices misuse: the root of every class held by boost::intrusive_ptr.
///
/// Objects are made with new and deleted by the unref that drops their last reference. While an
/// object exists it is registered with Helper::instanceManager: with an empty type name at first,
/// with its own from the first reference on. Misuse is a std::runtime_error with a numbered text; a
/// destructor can't throw, so it reports on std::cout. Safe for several threads: a fixed number of
/// locks, which the manager owns, guards the counts of all objects.
///
/// The alignment is that of memory from new, which keeps the manager's record small.
class alignas(16) Careful
{
public:
  /// \throws std::bad_alloc  if the manager finds no memory for its record
  Careful();
  /// A copy is a separate object: neither count nor mark are copied.
  Careful(const Careful& other);
  Careful& operator=(const Careful& other);

  /// The type of the most derived object as typeid names it, undemangled. It is a property of the
  /// class, not of the object: it is asked for once for each class, and an override that tells
  /// objects of one class apart is listed under the name of the first.
  virtual std::string typeName() const;

  /// Reports on std::cout an object that is not deleted by unref. A derived destructor may throw;
  /// unref then throws an exception that names the object.
  virtual ~Careful() noexcept(false);

  /// Adds a reference.
  /// \throws std::runtime_error  if the object is being deleted or the count would overflow
  void ref();

  /// Drops a reference. The last one deletes the object, unless \p allowDeletion is false: then it
  /// stays, with a count of 0, and can be referenced again.
  /// \throws std::runtime_error  if there is no reference to drop, the object is being deleted, or
  ///                             its destructor throws
  void unref(bool allowDeletion = true);

  unsigned long refCount() const;

private:
  std::string _describe() const;
  void _delete();

  // Guarded by the lock of the manager's shard, which also knows whether the object is being
  // deleted. The largest tree has more than a hundred million of these objects: no other member may
  // be added.
  unsigned long _refCount = 0;
};

static_assert(sizeof(Careful) == 16);

/// What boost::intrusive_ptr calls. A null object is an error here, since a member function can't
/// test for it.
void intrusive_ptr_add_ref(Careful* object);

/// As unref. A failure is also written to std::cout: the destructor of boost::intrusive_ptr lets
/// no exception out, and the reason must not be lost when the process ends there.
void intrusive_ptr_release(Careful* object);

} // namespace Kelmar::Base::Ref
