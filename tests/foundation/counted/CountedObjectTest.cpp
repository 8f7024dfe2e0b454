#include "foundation/counted/InstanceManager.h"
#include "foundation/counted/Referenced.h"
#include "support/Outcome.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gmock/gmock.h>

#include <cstdlib>
#include <functional>
#include <stdexcept>

namespace
{

using orvex::test::errorOf;
using orvex::test::printed;
using testing::MatchesRegex;

/// Does something while it is destroyed.
struct Object : Kelmar::Base::Referenced
{
  explicit Object(std::function<void()> action = [] {}) : last(std::move(action)) {}
  ~Object() noexcept(false) override { last(); }

  std::function<void()> last;
};

TEST(CountedObject, LivesFromConstructionToTheLastReferenceInTheRegistry)
{
  const auto types = [] { return Helper::instanceManager.objects(); };
  const std::size_t before = Helper::instanceManager.numberOfObjects();
  auto* object = new Object;
  EXPECT_EQ(types().at(object), "") << "the type is known with the first reference only";
  object->ref();
  EXPECT_EQ(types().at(object), typeid(Object).name());
  object->unref(false);
  EXPECT_EQ(object->refCount(), 0u) << "alive, and can be referenced again";
  std::vector<boost::intrusive_ptr<Object>> objects{object};
  for (int i = 0; i < 6; ++i) // copies take no references of their own
  {
    objects.emplace_back(new Object(*object));
    *objects.back() = *object;
    EXPECT_EQ(objects.back()->refCount(), 1u);
  }
  for (const std::size_t removed : {3u, 0u, 6u, 1u}) // the middle, both ends, the new end
  {
    const Object* gone = objects[removed].get();
    objects[removed].reset();
    EXPECT_EQ(types().count(gone), 0u);
  }
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), before + 3);
  EXPECT_EQ(types().size(), before + 3);
}

TEST(CountedObject, TellsEveryMisuse)
{
  const boost::intrusive_ptr<Object> object(new Object);
  Object* const none = nullptr;
  object->unref(false);
  EXPECT_THAT(errorOf([&] { object->unref(); }),
              MatchesRegex("Error 1107142984: Address 0x[0-9a-f]+, type '.*Object.*', attempting "
                           "to decrement a reference count that is already zero"));
  object->ref(); // no lock is held by the failure
  EXPECT_EQ(errorOf([&] { intrusive_ptr_add_ref(none); }) + "|" +
                errorOf([&] { intrusive_ptr_release(none); }),
            "Error 6722137890: Referencing a null object|"
            "Error 6722137890: Dereferencing a null object");
  auto* doomed = new Object;
  std::string refused;
  doomed->last = [&]
  { refused = errorOf([&] { doomed->ref(); }) + "|" + errorOf([&] { doomed->unref(); }); };
  doomed->ref();
  doomed->unref();
  EXPECT_THAT(refused, MatchesRegex("Error 3162870490: Address .*', attempting to reference an "
                                    "object that has been marked for deletion\\|"
                                    "Error 3760700259: Address .*', attempting to dereference an "
                                    "object that has been marked for deletion"));
}

TEST(CountedObject, TellsWhatItsDestructorThrows)
{
  const std::function<void()> thrown = [] { throw std::runtime_error("no paper"); };
  for (const auto& [last, expected] :
       {std::pair(thrown, "Error 3897452156: deleting address 0x[0-9a-f]+ of type '.*Object.*' "
                          "caused an exception, no paper"),
        std::pair(std::function<void()>([] { throw 17; }),
                  "Error 2496190937: deleting address .* caused an exception")})
  {
    auto* object = new Object(last);
    object->ref();
    EXPECT_THAT(errorOf([&] { object->unref(); }), MatchesRegex(expected));
    object = new Object(last);
    intrusive_ptr_add_ref(object);
    std::string error;
    const std::string log =
        printed([&] { error = errorOf([&] { intrusive_ptr_release(object); }); });
    EXPECT_THAT(error, MatchesRegex(expected));
    EXPECT_EQ(log, error + "\n") << "a smart pointer's destructor lets nothing out";
  }
  auto* object = new Object;
  object->ref();
  EXPECT_THAT(
      printed([&] { delete object; }),
      MatchesRegex("Error 2592561907: Deleting object 0x[0-9a-f]+ which has not been "
                   "marked for deletion\n"
                   "Error 2427831854: Deleting object 0x[0-9a-f]+ with reference count 1\n"));
}

TEST(InstanceReportDeathTest, ListsWhatIsLeftAtExitAndNothingElse)
{
  EXPECT_EXIT((new Object, intrusive_ptr_add_ref(new Object), std::exit(0)),
              testing::ExitedWithCode(0),
              "2 objects remaining:\n\n\tAddress: 0x[0-9a-f]+, Type: .*\n\n\tAddress: 0x");
  EXPECT_EXIT(std::exit(0), testing::ExitedWithCode(0), "^$");
}

} // namespace
