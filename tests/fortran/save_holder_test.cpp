// Saved local state of a routine: made at its first call, kept between calls, gone with its holder.
#include "fortran/save_holder.hpp"

#include "model/store/store.hpp"

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace korvat::test {
namespace {

using fortran::SaveHolder;

struct Counter {
    int calls = 7;
    std::vector<double> values;
    std::shared_ptr<int> owned;
};

TEST(SaveHolder, IsEmptyBeforeTheFirstCall) {
    SaveHolder holder;
    EXPECT_TRUE(holder.is_empty());
    EXPECT_EQ(holder.get<Counter>().calls, 7);
    EXPECT_FALSE(holder.is_empty());
}

TEST(SaveHolder, KeepsTheStateBetweenCalls) {
    SaveHolder holder;
    for (int i = 0; i < 3; ++i) {
        Counter& save = holder.get<Counter>();
        EXPECT_EQ(save.calls, 7 + i);
        EXPECT_EQ(save.values.size(), static_cast<std::size_t>(i));
        ++save.calls;
        save.values.push_back(0.5);
    }
}

TEST(SaveHolder, GivesTheSameStateEachTime) {
    SaveHolder holder;
    EXPECT_EQ(&holder.get<Counter>(), &holder.get<Counter>());
}

TEST(SaveHolder, DestroysTheStateWithItself) {
    const auto witness = std::make_shared<int>(1);
    {
        SaveHolder holder;
        holder.get<Counter>().owned = witness;
        EXPECT_EQ(witness.use_count(), 2);
    }
    EXPECT_EQ(witness.use_count(), 1);
}

TEST(SaveHolder, EveryHolderHasItsOwnState) {
    SaveHolder first;
    SaveHolder second;
    first.get<Counter>().calls = 1;
    EXPECT_TRUE(second.is_empty());
    EXPECT_EQ(second.get<Counter>().calls, 7);
}

TEST(SaveHolder, TheStoreStartsWithEmptyOnes) {
    const auto cmn = std::make_unique<Store>(0, nullptr);
    ASSERT_NE(cmn->printpil_sve, nullptr);
    ASSERT_NE(cmn->sketch_sve, nullptr);
    EXPECT_TRUE(cmn->printpil_sve->is_empty());
    EXPECT_TRUE(cmn->sketch_sve->is_empty());
    cmn->printpil_sve->get<Counter>().calls = 1;
    EXPECT_TRUE(cmn->sketch_sve->is_empty());
}

} // namespace
} // namespace korvat::test
