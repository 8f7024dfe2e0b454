#include "foundation/InstanceManager.h"
#include "foundation/Referenced.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gmock/gmock.h>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace
{

using Kelmar::Base::Referenced;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class Leaf : public Referenced
{
};

class Thrower : public Referenced
{
public:
  explicit Thrower(std::function<void()> raise) : _raise(std::move(raise)) {}
  ~Thrower() noexcept(false) override { _raise(); }

private:
  std::function<void()> _raise;
};

std::string addressOf(const Referenced* object)
{
  std::ostringstream out;
  out << static_cast<const void*>(object);
  return out.str();
}

std::string messageOf(const std::function<void()>& action)
{
  try
  {
    action();
  }
  catch (const std::runtime_error& e)
  {
    return e.what();
  }
  return "no exception";
}

/// What is written to std::cout in its lifetime.
class CapturedOutput
{
public:
  CapturedOutput() : _before(std::cout.rdbuf(_out.rdbuf())) {}
  ~CapturedOutput() { std::cout.rdbuf(_before); }
  std::string text() const { return _out.str(); }

private:
  std::ostringstream _out;
  std::streambuf* _before;
};

std::string registeredType(const Referenced* object)
{
  const auto objects = Helper::instanceManager.objects();
  const auto entry = objects.find(object);
  return entry == objects.end() ? "not registered" : entry->second;
}

TEST(CountedObject, LivesFromConstructionToTheLastReferenceInTheRegistry)
{
  const std::size_t before = Helper::instanceManager.numberOfObjects();
  auto* object = new Leaf;
  EXPECT_EQ(object->refCount(), 0u);
  EXPECT_EQ(registeredType(object), "") << "the type is known with the first reference only";

  object->ref();
  EXPECT_EQ(registeredType(object), typeid(Leaf).name());
  object->ref();
  object->unref();
  EXPECT_EQ(object->refCount(), 1u);

  object->unref(false);
  EXPECT_EQ(object->refCount(), 0u) << "alive, and can be referenced again";
  object->ref();
  EXPECT_EQ(registeredType(object), typeid(Leaf).name());
  object->unref();
  EXPECT_EQ(registeredType(object), "not registered");
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), before);
}

TEST(CountedObject, RegistryHoldsObjectsRemovedInAnyOrderByAddress)
{
  const std::size_t before = Helper::instanceManager.numberOfObjects();
  std::vector<boost::intrusive_ptr<Leaf>> objects;
  for (int i = 0; i < 7; ++i)
  {
    objects.emplace_back(new Leaf);
  }
  for (const int removed : {3, 0, 6, 1}) // the middle, both ends, the new end
  {
    const Leaf* gone = objects[static_cast<std::size_t>(removed)].get();
    objects[static_cast<std::size_t>(removed)].reset();
    EXPECT_EQ(registeredType(gone), "not registered");
  }
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), before + 3);
  EXPECT_EQ(Helper::instanceManager.objects().size(), before + 3);
}

TEST(CountedObject, CopyAndAssignmentTakeNoReferences)
{
  boost::intrusive_ptr<Leaf> held(new Leaf);
  const boost::intrusive_ptr<Leaf> twice = held;
  const boost::intrusive_ptr<Leaf> copy(new Leaf(*held));
  EXPECT_EQ(copy->refCount(), 1u);
  *copy = *held;
  EXPECT_EQ(copy->refCount(), 1u);
  EXPECT_EQ(held->refCount(), 2u);
}

TEST(CountedObject, MisuseThrowsAtOnceAndLeavesNoLockHeld)
{
  boost::intrusive_ptr<Leaf> object(new Leaf);
  object->unref(false);
  EXPECT_EQ(messageOf([&] { object->unref(); }),
            "Error 1107142984: Address " + addressOf(object.get()) + ", type '" +
                typeid(Leaf).name() +
                "', attempting to decrement a reference count that is already zero");
  object->ref();
  EXPECT_EQ(object->refCount(), 1u);

  EXPECT_EQ(messageOf([] { intrusive_ptr_add_ref(static_cast<Leaf*>(nullptr)); }),
            "Error 6722137890: Referencing a null object");
  EXPECT_EQ(messageOf([] { intrusive_ptr_release(static_cast<Leaf*>(nullptr)); }),
            "Error 6722137890: Dereferencing a null object");
}

TEST(CountedObject, ADoomedObjectRefusesReferences)
{
  std::string onRef;
  std::string onUnref;
  Referenced* self = nullptr;
  self = new Thrower(
      [&]
      {
        onRef = messageOf([&] { self->ref(); });
        onUnref = messageOf([&] { self->unref(); });
      });
  self->ref();
  self->unref();
  EXPECT_THAT(onRef, StartsWith("Error 3162870490: Address "));
  EXPECT_THAT(onRef,
              EndsWith("', attempting to reference an object that has been marked for deletion"));
  EXPECT_THAT(onUnref, StartsWith("Error 3760700259: Address "));
  EXPECT_THAT(onUnref,
              EndsWith("', attempting to dereference an object that has been marked for deletion"));
}

TEST(CountedObject, AThrowingDestructorSurfacesFromUnref)
{
  auto* object = new Thrower([] { throw std::runtime_error("no more paper"); });
  const std::string where = addressOf(object) + " of type '" + typeid(Thrower).name() + "'";
  object->ref();
  EXPECT_EQ(messageOf([&] { object->unref(); }),
            "Error 3897452156: deleting address " + where + " caused an exception, no more paper");

  object = new Thrower([] { throw 17; });
  object->ref();
  EXPECT_THAT(messageOf([&] { object->unref(); }),
              testing::AllOf(StartsWith("Error 2496190937: deleting address "),
                             EndsWith(" caused an exception")));
}

TEST(CountedObject, AFailureUnderASmartPointerReachesTheLogFirst)
{
  const CapturedOutput log;
  auto* object = new Thrower([] { throw std::runtime_error("no more paper"); });
  intrusive_ptr_add_ref(object);
  EXPECT_THAT(messageOf([&] { intrusive_ptr_release(object); }), HasSubstr("3897452156"));
  EXPECT_THAT(log.text(), EndsWith("caused an exception, no more paper\n"));
}

TEST(CountedObject, DeletionByHandIsReportedAndThrowsNothing)
{
  const CapturedOutput log;
  auto* object = new Leaf;
  const std::string address = addressOf(object);
  object->ref();
  EXPECT_NO_THROW(delete object);
  EXPECT_EQ(log.text(), "Error 2592561907: Deleting object " + address +
                            " which has not been marked for deletion\n"
                            "Error 2427831854: Deleting object " +
                            address + " with reference count 1\n");
}

TEST(InstanceReportDeathTest, ListsWhatIsLeftAtExitAndNothingElse)
{
  const auto leaveTwo = []
  {
    const auto* one = new Leaf;
    intrusive_ptr_add_ref(new Leaf);
    std::exit(one ? 0 : 1);
  };
  EXPECT_EXIT(leaveTwo(), testing::ExitedWithCode(0),
              "2 objects remaining:\n\n\tAddress: 0x[0-9a-f]+, Type: .*\n\n\tAddress: 0x");
  EXPECT_EXIT(std::exit(0), testing::ExitedWithCode(0), "^$");
}

} // namespace
