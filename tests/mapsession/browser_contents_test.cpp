// SPDX-License-Identifier: MIT

#include "mapsession/browser_contents.h"
#include "sample_session.h"

namespace quandrel {
namespace {

TEST(BrowserContents, ShowsATableWithItsSelectedRows) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Browse * From dips");
    (void)sample.session->Do("Select * From dips Where RowID = 2");
    const BrowserContents contents(sample.session->State(), 1);
    EXPECT_EQ(contents.TableName(), "dips");
    EXPECT_EQ(contents.RowCount(), 100);
    ASSERT_EQ(contents.ColumnCount(), 2);
    EXPECT_EQ(contents.Column(1).name, "Dip");
    EXPECT_EQ(contents.Column(1).kind, SessionColumnKind::Number);
    EXPECT_EQ(contents.Cell(2, 2), "even");
    EXPECT_EQ(contents.TableRow(2), 2);
    EXPECT_TRUE(contents.IsSelected(2));
    EXPECT_FALSE(contents.IsSelected(3));
}

TEST(BrowserContents, FollowsTheSelectionWhenItShowsThat) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Select * From dips Where RowID = 30 or RowID = 20");
    (void)sample.session->Do("Browse * From Selection");
    EXPECT_EQ(sample.Eval("WindowInfo(1,10)"), "Selection");
    const BrowserContents contents(sample.session->State(), 1);
    EXPECT_EQ(contents.RowCount(), 2);
    EXPECT_EQ(contents.Cell(2, 1), "30");
    EXPECT_EQ(contents.TableRow(2), 30);
    EXPECT_TRUE(contents.IsSelected(1));
    (void)sample.session->Do("Select * From dips Where RowID = 40");
    EXPECT_EQ(contents.RowCount(), 1);
    EXPECT_EQ(contents.Cell(1, 1), "40");
}

TEST(BrowserContents, IsEmptyWhenItsWindowOrTableHasGone) {
    SampleSession sample;
    const std::int64_t map = sample.OpenMapOfDips();
    EXPECT_EQ(BrowserContents(sample.session->State(), map).RowCount(), 0);
    (void)sample.session->Do("Browse * From dips");
    const BrowserContents contents(sample.session->State(), 2);
    (void)sample.session->Do("Close Table dips");
    EXPECT_EQ(contents.RowCount(), 0);
    EXPECT_EQ(contents.ColumnCount(), 0);
    EXPECT_EQ(contents.TableName(), "");
}

TEST(InfoContents, TellsTheFirstSelectedRow) {
    SampleSession sample;
    EXPECT_TRUE(InfoContents(sample.session->State()).empty());
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Select * From dips Where RowID = 31 or RowID = 16");
    using Lines = std::vector<std::pair<std::string, std::string>>;
    EXPECT_EQ(InfoContents(sample.session->State()), (Lines{{"Dip", "16"}, {"Kind", "even"}}));
}

} // namespace
} // namespace quandrel
