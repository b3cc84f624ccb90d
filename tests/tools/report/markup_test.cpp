// Texts and elements of a page.
#include "report/markup.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using report::Markup;

TEST(ReportMarkup, WritesElementsWithinElements) {
    Markup page;
    page.open("p", {{"class", "a"}, {"data-value", 0.1}, {"tabindex", -1}});
    page.text("1 < 2");
    page.element("b", "and");
    page.leaf("br");
    EXPECT_EQ(page.finish(),
              "<p class=\"a\" data-value=\"0.1\" tabindex=\"-1\">1 &lt; 2<b>and</b><br/>\n</p>\n");
}

TEST(ReportMarkup, TextsAndAttributesAreNoMarkup) {
    EXPECT_EQ(report::escaped("</script>&amp;'\""), "&lt;/script&gt;&amp;amp;&#39;&quot;");
    Markup page;
    page.leaf("p", {{"title", "\" onclick=\"x"}});
    EXPECT_EQ(page.finish(), "<p title=\"&quot; onclick=&quot;x\"/>\n");
}

TEST(ReportMarkup, ShowsWhatWouldDoSomethingAsAQuestionMark) {
    EXPECT_EQ(report::readable("a\tb\x01\x7F"), "a\tb??");
    EXPECT_EQ(report::readable("\xFF\xC3\xA4"), "?\xC3\xA4");
    // Right-to-left letters stay, what turns the letters around them goes.
    EXPECT_EQ(
        report::readable("\xD7\x90|\xE2\x80\xAE|\xE2\x80\x8F|\xD8\x9C|\xE2\x81\xA6|\xE2\x80\xA6"),
        "\xD7\x90|?|?|?|?|\xE2\x80\xA6");
}

} // namespace
} // namespace korvat::test
