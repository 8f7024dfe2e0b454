#include "foundation/counted/InstanceManager.h"
#include "foundation/counted/Referenced.h"
#include "support/Outcome.h"

#include <limits>

using testing::MatchesRegex;

/// Does something while it is destroyed.
struct Object : Kelmar::Base::Referenced
{
  explicit Object(std::function<void()> action = [] {}) : last(std::move(action)) {}
  ~Object() noexcept(false) override { last(); }

  std::function<void()> last;
};

TEST(CountedObject, HasATypeInTheRegistryFromItsFirstReferenceOn)
{
  const auto types = [] { return Helper::instanceManager.objects(); };
  auto* object = new Object;
  EXPECT_EQ(types().at(object), "");
  object->ref();
  EXPECT_EQ(types().at(object), typeid(Object).name());
  object->unref(false);
  EXPECT_EQ(object->refCount(), 0u) << "alive, and can be referenced again";
  object->ref();
  object->unref();
  EXPECT_EQ(types().count(object), 0u);
}

TEST(CountedObject, IsCopiedWithoutItsReferencesAndLeavesTheRegistryFromAnyPlace)
{
  const std::size_t before = Helper::instanceManager.numberOfObjects();
  std::vector<boost::intrusive_ptr<Object>> objects{new Object};
  for (int i = 0; i < 6; ++i)
  {
    objects.emplace_back(new Object(*objects[0]));
    *objects.back() = *objects[0];
    EXPECT_EQ(objects.back()->refCount(), 1u);
  }
  for (const std::size_t removed : {3u, 0u, 6u, 1u}) // the middle, both ends, the new end
  {
    const Object* gone = objects[removed].get();
    objects[removed].reset();
    EXPECT_EQ(Helper::instanceManager.objects().count(gone), 0u);
  }
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), before + 3);
  EXPECT_EQ(Helper::instanceManager.objects().size(), before + 3);
}

TEST(CountedObject, IsFoundAgainWhereverItLies)
{
  const std::size_t before = Helper::instanceManager.numberOfObjects();
  const auto types = [] { return Helper::instanceManager.objects(); };
  // So far apart that their records share the lock, but not the memory.
  constexpr std::size_t distance = std::size_t(64) << 20;
  const std::unique_ptr<char[]> memory(new char[distance + sizeof(Object)]);
  auto* low = new (memory.get()) Object;
  auto* high = new (memory.get() + distance) Object;
  low->ref();
  EXPECT_EQ(types().at(low), typeid(Object).name());
  EXPECT_EQ(types().at(high), "");
  outputOf([&] { low->~Object(); });
  EXPECT_EQ(types().count(low), 0u);
  high->ref();
  EXPECT_EQ(types().at(high), typeid(Object).name());
  outputOf([&] { high->~Object(); });
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), before);
}

TEST(CountedObject, MayCountOthersWhereItNamesItsType)
{
  struct Namer : Object
  {
    std::string typeName() const override
    {
      other.ref();
      other.unref(false);
      return "Namer";
    }
    mutable Object other; // of the same mebibyte, so of the same lock
  };
  auto* object = new Namer;
  object->ref();
  EXPECT_EQ(Helper::instanceManager.objects().at(object), "Namer");
  object->unref(false);
  EXPECT_THAT(errorOf([&] { object->unref(); }), testing::HasSubstr("type 'Namer', attempting"));
  outputOf([&] { delete object; });
}

TEST(CountedObject, RefusesToBeReleasedMoreOftenThanItIsHeld)
{
  const boost::intrusive_ptr<Object> object(new Object);
  object->unref(false);
  EXPECT_THAT(errorOf([&] { object->unref(); }),
              MatchesRegex("Error 1107142984: Address 0x[0-9a-f]+, type '.*Object.*', attempting "
                           "to decrement a reference count that is already zero"));
  object->ref(); // no lock is held by the failure
}

TEST(CountedObject, RefusesAReferenceThatTheCountCannotHold)
{
  const boost::intrusive_ptr<Object> object(new Object);
  // The count lies behind the pointer to the class. To fill it by references takes too long.
  unsigned long& count = *(reinterpret_cast<unsigned long*>(object.get()) + 1);
  count = std::numeric_limits<unsigned long>::max();
  EXPECT_THAT(
      errorOf([&] { object->ref(); }),
      MatchesRegex("Error 4544591930: Address .*', attempting to increment 'm' with a value of "
                   "18446744073709551615 will overflow"));
  EXPECT_EQ(object->refCount(), std::numeric_limits<unsigned long>::max());
  count = 1;
}

TEST(CountedObject, RefusesReferencesWhileItIsDeleted)
{
  auto* object = new Object;
  std::string refused;
  object->last = [&]
  { refused = errorOf([&] { object->ref(); }) + "|" + errorOf([&] { object->unref(); }); };
  object->ref();
  object->unref();
  EXPECT_THAT(
      refused,
      MatchesRegex("Error 3162870490: Address .*', attempting to reference an object that has been "
                   "marked for deletion\\|Error 3760700259: Address .*', attempting to dereference "
                   "an object that has been marked for deletion"));
}

TEST(CountedObject, ThatIsNullCannotBeHeld)
{
  Object* const none = nullptr;
  EXPECT_EQ(
      errorOf([&] { intrusive_ptr_add_ref(none); }) + "|" +
          errorOf([&] { intrusive_ptr_release(none); }),
      "Error 6722137890: Referencing a null object|Error 6722137890: Dereferencing a null object");
}

TEST(CountedObject, TellsWhatItsDestructorThrows)
{
  const std::function<void()> runtimeError = [] { throw std::runtime_error("no paper"); };
  const std::function<void()> number = [] { throw 17; };
  for (const auto& [last, expected] :
       {std::pair(runtimeError, "Error 3897452156: deleting address 0x[0-9a-f]+ of type "
                                "'.*Object.*' caused an exception, no paper"),
        std::pair(number, "Error 2496190937: deleting address .* caused an exception")})
  {
    auto* object = new Object(last);
    object->ref();
    EXPECT_THAT(errorOf([&] { object->unref(); }), MatchesRegex(expected));
    object = new Object(last);
    intrusive_ptr_add_ref(object);
    std::string error;
    const std::string log =
        outputOf([&] { error = errorOf([&] { intrusive_ptr_release(object); }); });
    EXPECT_THAT(error, MatchesRegex(expected));
    EXPECT_EQ(log, error + "\n") << "a smart pointer's destructor lets nothing out";
  }
}

TEST(CountedObject, LogsThatItWasDeletedByHand)
{
  auto* object = new Object;
  for (int i = 0; i < 17; ++i)
  {
    object->ref();
  }
  EXPECT_THAT(
      outputOf([&] { std::cout << std::hex, delete object, std::cout << std::dec; }),
      MatchesRegex(
          "Error 2592561907: Deleting object 0x[0-9a-f]+ which has not been marked for "
          "deletion\nError 2427831854: Deleting object 0x[0-9a-f]+ with reference count 17\n"));
}

TEST(InstanceReportDeathTest, ListsWhatIsLeftAtExitAndNothingElse)
{
  EXPECT_EXIT((new Object, intrusive_ptr_add_ref(new Object), std::exit(0)),
              testing::ExitedWithCode(0),
              "2 objects remaining:\n\n\tAddress: 0x[0-9a-f]+, Type: .*\n\n\tAddress: 0x");
  EXPECT_EXIT(std::exit(0), testing::ExitedWithCode(0), "^$");
}
