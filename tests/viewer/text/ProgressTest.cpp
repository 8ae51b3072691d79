#include "Progress.h"

#include <gtest/gtest.h>

namespace {

using qelview::Progress;
using qelview::ProgressStretch;

TEST(Progress, IsAShareOfTheWhole) {
    Progress progress;
    EXPECT_EQ(progress.done(), 0.0);
    progress.report(0.25);
    EXPECT_EQ(progress.done(), 0.25);
    progress.report(-1.0);
    EXPECT_EQ(progress.done(), 0.0);
    progress.report(1.5);
    EXPECT_EQ(progress.done(), 1.0);
}

TEST(Progress, EndsTheWorkOnceTheUserGaveUp) {
    Progress progress;
    const ProgressStretch stretch(progress, 0.0, 1.0);
    stretch.report(0.25);
    progress.cancel();
    EXPECT_THROW(stretch.report(0.5), qelview::ReadCancelled);
}

TEST(ProgressStretch, CountsItsOwnWorkFromNothingToAll) {
    Progress progress;
    const ProgressStretch stretch(progress, 0.5, 0.75);
    stretch.report(0.0);
    EXPECT_EQ(progress.done(), 0.5);
    stretch.report(0.5);
    EXPECT_EQ(progress.done(), 0.625);
    stretch.report(2.0);
    EXPECT_EQ(progress.done(), 0.75);
    stretch.part(0.5, 1.0).report(0.5);
    EXPECT_EQ(progress.done(), 0.6875);
}

TEST(ProgressStretch, ReportsOneInThousandsOfPieces) {
    Progress progress;
    const ProgressStretch stretch(progress, 0.0, 1.0);
    stretch.reportPiece(65536, 131072);
    EXPECT_EQ(progress.done(), 0.5);
    stretch.reportPiece(65537, 131072);
    stretch.reportPiece(131071, 131072);
    EXPECT_EQ(progress.done(), 0.5);
    stretch.reportPiece(0, 131072);
    EXPECT_EQ(progress.done(), 0.0);
}

}  // namespace
