// No rule finds anything in a sound deck, and in the examples only what an engineer would say too.
#include "rule_fixture.hpp"

#include <array>
#include <map>
#include <random>
#include <set>

namespace korvat::test {
namespace {

std::string example(const std::string& name) {
    return read_whole_file(std::filesystem::path(KORVAT_EXAMPLES_DIR) / name / "KORVAT.INP");
}

// The lines of the findings in rising order, rule by rule.
std::string lines_by_rule(const Findings& findings) {
    std::map<std::string, std::multiset<int>> by_rule;
    for (const Finding& finding : findings)
        by_rule[finding.rule].insert(finding.place.line);
    std::string text;
    for (const auto& [rule, lines] : by_rule) {
        text += rule + ":";
        for (const int line : lines)
            text += " " + std::to_string(line);
        text += "\n";
    }
    return text;
}

TEST(ModelRules, NothingToSayOfSoundDecks) {
    for (const std::string& deck : {sound_deck, sound_deck_5()}) {
        const CheckedDeck checked(deck);
        EXPECT_EQ(checked.exit_code(), 0);
        EXPECT_EQ(checked.all_findings(), Findings{});
    }
}

TEST(ModelRules, NothingToSayOfThreeExamples) {
    for (const std::string name : {"jacket", "dolphin", "insert-piles"})
        EXPECT_EQ(CheckedDeck(example(name)).all_findings(), Findings{}) << name;
}

// Piles 12 and 13 are fenders that stand free in front of the cap, and vector 2 loads them.
TEST(ModelRules, TheFendersOfTheBargeImpactStandFree) {
    const std::string remedy = "Check that its head is meant to be free.";
    EXPECT_EQ(
        CheckedDeck(example("barge-impact")).all_findings(),
        (Findings{note("load-on-free-pile", {83, 2, 2},
                       "pile 12 is loaded and fixed to no other pile: it takes its loads alone",
                       remedy),
                  note("load-on-free-pile", {85, 2, 2},
                       "pile 13 is loaded and fixed to no other pile: it takes its loads alone",
                       remedy)}));
}

// The two groups at the limits are no structures, and so the rules speak. The lists are those of a
// calculation of its own, from the decks alone: lengths and diameters of the elements, overlaps of the
// node value records, and distances between points every 20 mm along all piles. The raked piles pass
// the long vertical ones of their blocks; the long ones have up to 450 elements; the copies of the long ones
// do not repeat their tip codes; and the 499 records of node values run over the piles several times.
TEST(ModelRules, TheGroupAtTheLimits) {
    EXPECT_EQ(
        lines_by_rule(CheckedDeck(example("limits")).all_findings()),
        "copy-tip-code: 1423 1426 1429 1432 1435 1438 1441 1444 1447 1450 1453 1456 1459 1462 "
        "1465 1468 1471 1474 1477\n"
        "element-long: 170 200\n"
        "element-short: 951 953 1001 1003 1005 1007 1009 1051 1053 1055 1057 1059 1101 1103 1105 "
        "1107 1109\n"
        "elements-many: 1325 1332 1339 1346 1353 1360 1367 1374 1381 1388 1395 1402 1409 1416\n"
        "node-value-replaced: 1682 1687 1690 1692 1693 1698 1701 1702 1704 1712 1713 1718 1721 "
        "1722 1724 1732 1741 1742 1744 1752 1757 1760 1762 1772 1777 1780 1782 1783 1788 1792 "
        "1794 1797 1800 1802 1803 1808 1811 1812 1814 1822 1828 1831 1832 1834 1842 1850 1852 "
        "1853 1854 1862 1867 1870 1872 1873 1878 1881 1882 1887 1890 1892 1893 1898 1901 1902 "
        "1912 1913 1918 1921 1922 1924 1932 1937 1941 1942 1944 1952 1957 1959 1962 1963 1972 "
        "1977\n"
        "pile-clash: 1124 1148 1172 1180 1196 1204 1220 1228 1236 1236 1244 1252 1260 1260 1267 "
        "1268 1276\n");
}

// The same group with composites: section numbers step past sections of all sizes, temperatures are given
// where composites take strains, and the points of section 5 have no engineering meaning.
TEST(ModelRules, TheGroupAtTheLimitsOfRevision5) {
    EXPECT_EQ(
        lines_by_rule(CheckedDeck(example("limits-revision-5")).all_findings()),
        "composite-temperature: 1781 1785 1789 1793 1801 1805 1809 1813 1817 1821 1825 1829 1833 "
        "1837 1841 1849 1853 1857 1861 1865 1869 1873 1877 1881 1885 1889 1893 1897 1901 1905 "
        "1909 1913 1917 1921 1925 1929 1933 1937 1941 1945 1949 1953 1957 1961 1965 1973 1977 "
        "1981 1985 1989 1993 2001 2005 2009 2013 2017 2021 2025 2029 2033 2037 2041 2049 2053 "
        "2057 2061 2065 2069 2073 2077 2081 2085 2089 2097 2101 2105 2109 2113 2117 2121 2125 "
        "2129 2133 2137 2141 2145 2149 2153 2157 2161 2165 2173 2177 2181 2185 2189 2193 2201 "
        "2205 2209 2213 2217 2221 2225 2229 2233 2237 2241 2245 2249 2253 2257 2261 2265 2269 "
        "2273\n"
        "copy-tip-code: 1719 1722 1725 1728 1731 1734 1737 1740 1743 1746 1749 1752 1755 1758 "
        "1761 1764 1767 1770 1773\n"
        "curve-far: 243\n"
        "element-long: 466 766 796 1096\n"
        "elements-many: 1607 1614 1621 1649 1656 1663 1684 1691 1698 1705 1712\n"
        "node-value-replaced: 1978 1983 1986 1988 1989 1994 1997 1998 2000 2008 2009 2014 2017 "
        "2018 2020 2028 2037 2038 2040 2048 2053 2056 2058 2068 2073 2076 2078 2079 2084 2088 "
        "2090 2093 2096 2098 2099 2104 2107 2108 2110 2118 2124 2127 2128 2130 2138 2146 2148 "
        "2149 2150 2158 2163 2166 2168 2169 2174 2177 2178 2183 2186 2188 2189 2194 2197 2198 "
        "2208 2209 2214 2217 2218 2220 2228 2233 2237 2238 2240 2248 2253 2255 2258 2259 2268 "
        "2273\n"
        "pile-clash: 1420 1444 1452 1468 1492 1516 1524 1540 1564 1572\n"
        "step-through-others: 408 411 414 438 441 444 548 551 578 581 584 654 748 751 754 758 761 "
        "764 768 774 781 788 794 798 801 804 821 888 894 898 904 921 968 974 988 991 994 998 1004 "
        "1068 1071 1074 1098 1101 1104 1108 1111 1114 1138 1141 1144 1311\n"
        "stiffness-jump: 1577 1577 1577 1577 1577 1577 1577 1578 1578 1578 1621 1621 1624 1624 "
        "1624 1624 1624 1624 1624 1626 1669 1669 1669 1669 1669 1669 1669 1669 1670 1670\n");
}

// Rows of a deck with some numbers at the ends of their range and some cut off.
check::Outline damaged(const check::Outline& outline, std::mt19937& random) {
    constexpr std::array<double, 12> extremes = {0.0,      -0.0,     -1.0,         1.0e300,
                                                 -1.0e300, 1.0e-300, 2147483647.0, -2147483648.0,
                                                 4.0e9,    0.5,      1000.0,       7.0};
    const auto one_of = [&](std::size_t count) { return random() % count; };
    std::vector<check::Row> rows = outline.rows();
    for (std::size_t i = 0; i < 1 + one_of(8); ++i) {
        check::Row& row = rows[one_of(rows.size())];
        if (row.numbers.empty()) continue;
        if (one_of(4) == 0) row.numbers.resize(one_of(row.numbers.size()));
        if (row.numbers.empty()) continue;
        row.numbers[one_of(row.numbers.size())].value = extremes[one_of(extremes.size())];
    }
    return check::Outline(std::move(rows));
}

// Every rule takes any rows, also such as do not belong to the group, and names places of the deck.
TEST(ModelRules, TakeAnyRows) {
    std::mt19937 random(11);
    const std::string refused =
        changed(sound_deck, "  1  1    1.0       0.030 ", "  1  1    1.0       25.0 ");
    for (const std::string& deck : {sound_deck, sound_deck_5(), refused}) {
        const CheckedDeck checked(deck);
        const int lines = static_cast<int>(checked.lines().size());
        for (int i = 0; i < 300; ++i) {
            const check::Outline outline = damaged(checked.outline(), random);
            for (const check::Rule& rule : model_rules()) {
                for (const Finding& finding : checked.findings(rule, outline)) {
                    ASSERT_EQ(finding.rule, rule.name);
                    ASSERT_TRUE(finding.place.line >= 0 && finding.place.line <= lines);
                    ASSERT_FALSE(finding.message.ends_with('.')) << finding.message;
                    ASSERT_TRUE(finding.remedy.ends_with('.')) << finding.remedy;
                }
            }
        }
    }
}

TEST(ModelRules, NamesDiffer) {
    std::set<std::string_view> names;
    for (const check::Rule& rule : model_rules())
        EXPECT_TRUE(names.insert(rule.name).second) << rule.name;
}

// docs/checks.md has a section for each rule, in the order of its group, that answers four questions.
TEST(ModelRules, EachHasItsSectionInTheDocument) {
    const std::string text = read_whole_file(
        std::filesystem::path(KORVAT_EXAMPLES_DIR).parent_path() / "docs" / "checks.md");
    std::size_t at = 0;
    const auto find = [&](const std::string& wanted) {
        const std::size_t found = text.find("\n" + wanted, at);
        ASSERT_NE(found, std::string::npos) << wanted;
        EXPECT_EQ(text.substr(at, found - at).find("\n### "), std::string::npos)
            << "a section before " << wanted;
        at = found + 1;
    };
    for (const auto& [heading, group] : {std::pair{"## Units", check::unit_rules()},
                                         {"## Sections", check::section_rules()},
                                         {"## Geometry", check::geometry_rules()},
                                         {"## Elements", check::element_rules()},
                                         {"## Links and values", check::link_rules()}}) {
        at = text.find(std::string("\n") + heading + "\n");
        ASSERT_NE(at, std::string::npos) << heading;
        for (const check::Rule& rule : group) {
            find("### " + std::string(rule.name) + "\n");
            for (const std::string part :
                 {"**Why:**", "**Example:**", "**What to do:**", "**Right to ignore:**"})
                find(part);
        }
    }
}

} // namespace
} // namespace korvat::test
