// The line that shows how far a batch is.
#include "study/progress.hpp"

#include <gtest/gtest.h>
#include <sstream>

namespace korvat::test {
namespace {

using study::BatchCounts;
using study::progress_line;
using study::progress_text;

TEST(StudyProgress, TellsRateAndTimeToGo) {
    // 400 were run in 10 s, so 40/s; 500 are left.
    const BatchCounts counts{.run = 400, .skipped = 100, .failed = 3};
    EXPECT_EQ(progress_text(counts, 1000, 10.0),
              "500 of 1000, 40/s, 0:13 to go, 100 skipped, 3 failed");
    EXPECT_EQ(progress_text(counts, std::nullopt, 10.0), "500, 40/s, 100 skipped, 3 failed");
    EXPECT_EQ(progress_text({.run = 5}, 10, 2.0), "5 of 10, 2.5/s, 0:02 to go");
    EXPECT_EQ(progress_text({.skipped = 5}, 10, 2.0), "5 of 10, 5 skipped"); // nothing was run
    EXPECT_EQ(progress_text({.run = 1}, 10, 0.0), "1 of 10");
}

TEST(StudyProgress, HasABarWhereThereIsRoom) {
    const BatchCounts counts{.run = 5};
    // 26 columns of text; the rest less brackets and blank is the bar.
    EXPECT_EQ(progress_line(counts, 10, 2.0, 26 + 13), "[#####     ] 5 of 10, 2.5/s, 0:02 to go");
    EXPECT_EQ(progress_line(counts, 10, 2.0, 26 + 12), "5 of 10, 2.5/s, 0:02 to go");
    EXPECT_EQ(progress_line(counts, 10, 2.0, 200).size(), 26U + 43U); // it does not grow for ever
    EXPECT_EQ(progress_line(counts, 10, 2.0, 7), "5 of 10");
    EXPECT_EQ(progress_line(counts, std::nullopt, 2.0, 80), "5, 2.5/s");
    EXPECT_EQ(progress_line({.run = 12}, 10, 2.0, 60).substr(0, 4), "[###"); // a list that grew
}

TEST(StudyProgress, WritesDurationsAsClocksDo) {
    EXPECT_EQ(study::duration_text(0.4), "0:00");
    EXPECT_EQ(study::duration_text(59.6), "1:00");
    EXPECT_EQ(study::duration_text(754.0), "12:34");
    EXPECT_EQ(study::duration_text(3723.0), "1:02:03");
    EXPECT_EQ(study::duration_text(-1.0), "0:00");
    EXPECT_EQ(study::duration_text(1.0e300), "1000000:00:00");
}

TEST(StudyProgress, IsSilentWhenQuiet) {
    std::ostringstream out;
    study::Progress quiet(out, 10, 80, /*is_quiet*/ true);
    quiet.show({.run = 5});
    quiet.finish();
    EXPECT_EQ(out.str(), "");
    quiet.tell("a failure"); // is not how far it is
    EXPECT_EQ(out.str(), "a failure\n");
}

} // namespace
} // namespace korvat::test
