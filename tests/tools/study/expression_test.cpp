// Expressions in the named places of a template.
#include "study/expression.hpp"

#include "study/study_error.hpp"

#include <gtest/gtest.h>
#include <map>

namespace korvat::test {
namespace {

using study::Expression;
using study::StudyError;

double value(const std::string& text) {
    const std::map<std::string, double> values = {{"d", 1.5}, {"wall", 0.05}, {"n_2", 4.0}};
    return Expression(text).value([&](const std::string& name) {
        const auto found = values.find(name);
        if (found == values.end()) throw StudyError("there is no value " + name);
        return found->second;
    });
}

std::string refusal(const std::string& text) {
    try {
        value(text);
    } catch (const StudyError& error) {
        return error.what();
    }
    return "none";
}

TEST(StudyExpression, TakesNamesAndNumbers) {
    EXPECT_EQ(value("d"), 1.5);
    EXPECT_EQ(value(" n_2 "), 4.0);
    EXPECT_EQ(value("2.5"), 2.5);
    EXPECT_EQ(value(".25"), 0.25);
    EXPECT_EQ(value("1e3"), 1000.0);
}

TEST(StudyExpression, WorksFromLeftToRightAndProductsFirst) {
    EXPECT_EQ(value("10-4-3"), 3.0); // not 10 - (4 - 3)
    EXPECT_EQ(value("16/4/2"), 2.0); // not 16 / (4 / 2)
    EXPECT_EQ(value("1+2*3"), 7.0);
    EXPECT_EQ(value("(1+2)*3"), 9.0);
    EXPECT_EQ(value("d - 2*wall"), 1.5 - 2.0 * 0.05);
    EXPECT_EQ(value("-d+n_2"), 2.5);
    EXPECT_EQ(value("2*-d"), -3.0);
    EXPECT_EQ(value("+d"), 1.5);
}

TEST(StudyExpression, TakesTheSignsOfWordProcessors) {
    EXPECT_EQ(value("n_2 \xE2\x88\x92 1"), 3.0);
    EXPECT_EQ(value("n_2 \xC3\x97 2"), 8.0);
    EXPECT_EQ(value("n_2 \xC3\xB7 8"), 0.5);
}

TEST(StudyExpression, RefusesWhatIsNone) {
    EXPECT_EQ(refusal(""), "'' is no expression: a name or a number is missing at its end");
    EXPECT_EQ(refusal("d+"), "'d+' is no expression: a name or a number is missing at its end");
    EXPECT_EQ(refusal("d wall"), "'d wall' is no expression: 'wall' cannot stand there");
    EXPECT_EQ(refusal("(d"), "'(d' is no expression: a parenthesis is not closed");
    EXPECT_EQ(refusal("d)"), "'d)' is no expression: ')' cannot stand there");
    EXPECT_EQ(refusal("#"), "'#' is no expression: '#' begins with neither a name nor a number");
    EXPECT_EQ(refusal("1e999"), "'1e999' is no expression: '1e999' is no number");
    EXPECT_EQ(refusal("t"), "there is no value t");
    EXPECT_EQ(refusal("1/(d-1.5)"), "its value is not finite");
}

TEST(StudyExpression, IsNotNestedWithoutEnd) {
    EXPECT_EQ(value(std::string(90, '(') + "d" + std::string(90, ')')), 1.5);
    EXPECT_THROW(Expression(std::string(100'000, '(')), StudyError);
    EXPECT_THROW(Expression(std::string(100'000, '-')), StudyError);
}

TEST(StudyExpression, NamesWhatItTakes) {
    EXPECT_EQ(Expression("b*a+(b-c)/2").names(), (std::vector<std::string>{"b", "a", "c"}));
    EXPECT_EQ(Expression("wall").only_name(), "wall");
    EXPECT_EQ(Expression("(wall)").only_name(), "wall");
    EXPECT_EQ(Expression("wall+0").only_name(), "");
    EXPECT_EQ(Expression("2").only_name(), "");
    EXPECT_TRUE(study::is_name("_x9"));
    EXPECT_FALSE(study::is_name("9x"));
    EXPECT_FALSE(study::is_name("wall [m]"));
    EXPECT_FALSE(study::is_name(""));
}

} // namespace
} // namespace korvat::test
