// Items that a write may carry: what the compiler refuses, and what is refused when it runs.
#include "runtime_fixture.hpp"

#include "fortran/internal_write.hpp"
#include "fortran/item.hpp"

#include <stdexcept>
#include <vector>

namespace korvat::test {
namespace {

using fortran::characters;
using fortran::Item;
using fortran::right_justified;
using fortran::Text;
using fortran::Writable;

static_assert(Writable<int>);
static_assert(Writable<double>);
static_assert(Writable<Text<1>>);
static_assert(Writable<Text<80>>);
static_assert(Writable<fortran::Characters>);
static_assert(Writable<fortran::RightJustified>);
static_assert(!Writable<std::string>);
static_assert(!Writable<std::string_view>);
static_assert(!Writable<const char*>);
static_assert(!Writable<char[4]>);
static_assert(!Writable<char>);
static_assert(!Writable<bool>);
static_assert(!Writable<float>);
static_assert(!Writable<long>);
static_assert(!Writable<unsigned>);
static_assert(!Writable<long double>);
static_assert(!std::constructible_from<Item, bool>);
static_assert(!std::constructible_from<Item, float>);
static_assert(!std::constructible_from<Item, char>);
static_assert(!std::constructible_from<Item, long>);
static_assert(!std::constructible_from<Item, std::string>);
static_assert(!std::constructible_from<Item, const char*>);

class WriteItems : public RuntimeTest {
protected:
    // The text of the fault, after which nothing may have been written.
    template <typename... Items>
    std::string fault(std::string_view format, const Items&... items) {
        try {
            written(format, items...);
        } catch (const std::logic_error& error) {
            runtime().close(20);
            EXPECT_EQ(directory.read_file("written"), "");
            return error.what();
        }
        return "(none)";
    }
};

TEST_F(WriteItems, AnIntegerGoesUnderIOnly) {
    EXPECT_EQ(fault("(i5)", 1), "(none)");
    EXPECT_EQ(fault("(f10.3)", 1), "item 1 does not fit its descriptor 'f' in FORMAT (f10.3)");
    EXPECT_EQ(fault("(e12.4)", 1), "item 1 does not fit its descriptor 'e' in FORMAT (e12.4)");
    EXPECT_EQ(fault("(a5)", 1), "item 1 does not fit its descriptor 'a' in FORMAT (a5)");
}

TEST_F(WriteItems, ARealGoesUnderFAndE) {
    EXPECT_EQ(fault("(f10.3)", 1.0), "(none)");
    EXPECT_EQ(fault("(e12.4)", 1.0), "(none)");
    EXPECT_EQ(fault("(i5)", 1.0), "item 1 does not fit its descriptor 'i' in FORMAT (i5)");
    EXPECT_EQ(fault("(a)", 1.0), "item 1 does not fit its descriptor 'a' in FORMAT (a)");
}

TEST_F(WriteItems, ATextGoesUnderAOnly) {
    EXPECT_EQ(fault("(a)", characters("x")), "(none)");
    EXPECT_EQ(fault("(i5)", characters("x")),
              "item 1 does not fit its descriptor 'i' in FORMAT (i5)");
    EXPECT_EQ(fault("(f7.3)", Text<3>("x")),
              "item 1 does not fit its descriptor 'f' in FORMAT (f7.3)");
    EXPECT_EQ(fault("(e12.4)", right_justified("x")),
              "item 1 does not fit its descriptor 'e' in FORMAT (e12.4)");
}

TEST_F(WriteItems, TheItemAtFaultIsNamed) {
    EXPECT_EQ(fault("(/,' N=',i5,2f12.4)", 1, 2.0, 3),
              "item 3 does not fit its descriptor 'f' in FORMAT (/,' N=',i5,2f12.4)");
    // The second record begins with the first descriptor again.
    EXPECT_EQ(fault("(i5,f7.3)", 1, 2.0, 3.0),
              "item 3 does not fit its descriptor 'i' in FORMAT (i5,f7.3)");
}

TEST_F(WriteItems, AFaultOfAnInternalWriteIsTheSame) {
    EXPECT_THROW((void)fortran::edited(10, "(i10.10)", 1.0), std::logic_error);
    EXPECT_THROW((void)fortran::edited(10, "(f10.3)", characters("x")), std::logic_error);
}

TEST_F(WriteItems, AFormatWithoutDescriptorTakesNoItem) {
    EXPECT_EQ(written("(' text')"), " text\n");
    EXPECT_THROW(written("(' text')", 1), std::runtime_error);
    EXPECT_THROW(written("(/,1x)", 1), std::runtime_error);
}

TEST_F(WriteItems, ARefusedWriteLeavesTheUnitUsable) {
    ASSERT_EQ(runtime().open(21, "log", fortran::OpenStatus::new_file), 0);
    runtime().write(21, "(i5)", 1);
    EXPECT_THROW(runtime().write(21, "(i5)", 1.0), std::logic_error);
    runtime().write(21, "(i5)", 2);
    runtime().close(21);
    EXPECT_EQ(directory.read_file("log"), "    1\n    2\n");
}

TEST(Items, KnowTheirKind) {
    EXPECT_EQ(Item(7).kind(), Item::Kind::integer);
    EXPECT_EQ(Item(7).integer(), 7);
    EXPECT_EQ(Item(0.5).kind(), Item::Kind::real);
    EXPECT_EQ(Item(0.5).real(), 0.5);
    EXPECT_EQ(Item(characters("ab")).kind(), Item::Kind::text);
    EXPECT_EQ(Item(right_justified("ab")).kind(), Item::Kind::right_text);
    const Text<4> text("ab");
    EXPECT_EQ(Item(text).kind(), Item::Kind::text);
    EXPECT_EQ(Item(text).text(), "ab  ");
}

} // namespace
} // namespace korvat::test
