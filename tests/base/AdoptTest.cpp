#include <gtest/gtest.h>

#include "QelRefPtr.h"
#include "QelReferenced.h"

namespace qel::test {
namespace {

class Made final : public QelReferenced {
  public:
    explicit Made(int& countOfLiving) : living(countOfLiving) { ++living; }

  private:
    ~Made() override { --living; }

    int& living;
};

TEST(Adopt, TakesOverTheReferenceOfAFactory) {
    int living = 0;
    Made* const made = new Made(living);
    made->AddRef();
    {
        const ref_ptr<Made> adopted = adopt(made);
        EXPECT_EQ(adopted.get(), made);
        EXPECT_EQ(made->referenceCount(), 1);
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
}

TEST(Adopt, GivesAnEmptyPointerForNull) {
    EXPECT_FALSE(adopt(static_cast<Made*>(nullptr)));
}

}  // namespace
}  // namespace qel::test
