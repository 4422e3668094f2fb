#include "explorer/CRebar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/fakes/fake_desktop.h"

namespace corvane::tests {
namespace {

using namespace corvane::fakes;
using ::testing::ElementsAre;

struct RebarTest : ::testing::Test {
  FakeDesktop desktop;
  std::unique_ptr<ElasticFrame> top = desktop.CreateElasticFrame("ELATop");
  std::unique_ptr<ElasticFrame> first = desktop.CreateElasticFrame("first");
  std::unique_ptr<ElasticFrame> second = desktop.CreateElasticFrame("second");
  CRebar rebar{desktop};

  void Create() {
    top->SetWidth(3000);
    first->SetWidth(1500);
    rebar.SetParent(top.get());
    ASSERT_TRUE(rebar.Create());
  }
};

TEST_F(RebarTest, IsNotMadeWithoutAParent) {
  EXPECT_FALSE(rebar.Create());
  EXPECT_EQ(rebar.hwnd(), 0U);
  rebar.Move(1, 2, 3, 4);
  rebar.Resize(*top);
  EXPECT_EQ(desktop.rebar, nullptr) << "nothing was made to be moved";
  EXPECT_EQ(rebar.GetRebarWindow(), 0);
  EXPECT_EQ(rebar.Heigth(), 8) << "the border alone";
}

TEST_F(RebarTest, IsMadeInItsParentWithItsStyleAndFirstPlace) {
  Create();
  EXPECT_EQ(desktop.windows.Style(rebar.hwnd()), 0x56804648U);
  EXPECT_THAT(desktop.rebar->place, ElementsAre(0, 0, 200, 60));
  EXPECT_EQ(rebar.GetRebarWindow(), static_cast<std::int32_t>(rebar.hwnd()));
}

TEST_F(RebarTest, BandCarriesItsWholeRecord) {
  Create();
  desktop.windows.windows[first->hwnd()].pixel_height = 27;
  rebar.AddBands("Address", 7, *first, 0);
  const BandInfo& band = desktop.rebar->bands.at(0);
  EXPECT_EQ(band.size, 56U);
  EXPECT_EQ(band.mask, 0x1BFU);
  EXPECT_EQ(band.style, 0x2A4U);
  EXPECT_EQ(band.text, "Address");
  EXPECT_EQ(band.id, 7U);
  EXPECT_EQ(band.child, first->hwnd());
  EXPECT_EQ(band.min_child_width, 100);
  EXPECT_EQ(band.min_child_height, 27);
  EXPECT_EQ(band.width, 10);
  EXPECT_EQ(band.foreground, 0x112U);  // button text
  EXPECT_EQ(band.background, 0x10FU);  // button face
}

TEST_F(RebarTest, OnlyTheFlagOneStartsANewRow) {
  Create();
  for (int flag : {1, 0, 2, -1}) rebar.AddBands("", 1, *first, flag);
  EXPECT_EQ(desktop.rebar->bands[0].style, 0x2A5U);
  for (std::size_t i = 1; i < 4; ++i) EXPECT_EQ(desktop.rebar->bands[i].style, 0x2A4U);
}

TEST_F(RebarTest, GivenMinimumWidthCountsInScreenUnits) {
  Create();
  rebar.AddBands("", 1, *first, 0, 4);
  EXPECT_EQ(desktop.rebar->bands[0].min_child_width, 60);
}

TEST_F(RebarTest, PictureIsEveryBandsBackground) {
  struct Holder : PictureHolder {
    std::uint64_t Picture() const override { return 99; }
  } holder;
  Create();
  rebar.AddBands("", 1, *first, 0);
  rebar.SetImageForRebar(&holder);
  rebar.AddBands("", 2, *second, 0);
  EXPECT_EQ(desktop.rebar->bands[0].background_bitmap, 0U);
  EXPECT_EQ(desktop.rebar->bands[1].background_bitmap, 99U);
}

TEST_F(RebarTest, BandIdIsReadByNumericIndexOnly) {
  Create();
  rebar.AddBands("", 41, *first, 0);
  EXPECT_EQ(rebar.GetBandId("0"), 41);
  EXPECT_EQ(rebar.GetBandId("first"), std::nullopt);
  EXPECT_EQ(rebar.GetBandId(""), std::nullopt);
}

TEST_F(RebarTest, BandsAreReadWithTheirMask) {
  Create();
  rebar.AddBands("", 41, *first, 0);
  rebar.GetBandId("0");
  EXPECT_EQ(desktop.rebar->read_mask, 0x9BFU);
  desktop.rebar->read_mask = 0;
  rebar.SetBandColors();
  EXPECT_EQ(desktop.rebar->read_mask, 0x9BFU);
}

TEST_F(RebarTest, BandsAreAppendedAndRepainted) {
  Create();
  rebar.AddBands("one", 1, *first, 0);
  rebar.AddBands("two", 2, *second, 0);
  EXPECT_EQ(rebar.GetBandId("0"), 1);
  EXPECT_EQ(rebar.GetBandId("1"), 2);
  EXPECT_EQ(desktop.rebar->repaints, 2);
  rebar.RemoveBands(0);
  EXPECT_EQ(rebar.GetBandId("0"), 2);
}

TEST_F(RebarTest, WithoutAWindowBandsAndColoursAreNoError) {
  rebar.AddBands("", 1, *first, 0);
  rebar.SetBandColors();
  rebar.SetMainParent(4711);
  EXPECT_EQ(rebar.BandCount(), 0);
  EXPECT_EQ(rebar.GetBandId("0"), 0);
  rebar.DestroyRebar();
  EXPECT_EQ(desktop.rebar, nullptr);
  Create();
  EXPECT_TRUE(desktop.rebar->bands.empty()) << "what had no window is not kept for one";
  EXPECT_EQ(desktop.rebar->notify_parent, 0U);
}

TEST_F(RebarTest, MovesAndTellsWhomItIsAskedTo) {
  Create();
  rebar.Move(1, 2, 3, 4);
  EXPECT_THAT(desktop.rebar->place, ElementsAre(1, 2, 3, 4));
  rebar.SetMainParent(4711);
  EXPECT_EQ(desktop.rebar->notify_parent, 4711U);
}

TEST_F(RebarTest, ColoursAreRenewed) {
  Create();
  rebar.AddBands("", 1, *first, 0);
  desktop.rebar->bands[0].foreground = 0;
  desktop.rebar->bands[0].background = 0;
  rebar.SetBandColors();
  EXPECT_EQ(desktop.rebar->bands[0].foreground, 0x112U);
  EXPECT_EQ(desktop.rebar->bands[0].background, 0x10FU);
}

TEST_F(RebarTest, HeightIsAllRowsAndTheBorder) {
  Create();
  desktop.rebar->rows = 2;
  EXPECT_EQ(rebar.Heigth(), 88);
}

TEST_F(RebarTest, DestroyHandsBackOnlyTheFirstChildsChain) {
  Create();
  rebar.AddBands("", 1, *first, 0);
  rebar.AddBands("", 2, *second, 0);
  const auto inner = desktop.windows.Add("inner", "Control", first->hwnd());
  const auto innermost = desktop.windows.Add("innermost", "Control", inner);
  desktop.windows.Add("sibling", "Control", first->hwnd());
  desktop.windows.moves.clear();
  rebar.DestroyRebar();
  EXPECT_THAT(desktop.windows.moves,
              ElementsAre(std::pair(first->hwnd(), top->hwnd()), std::pair(inner, top->hwnd()),
                          std::pair(innermost, top->hwnd())));
  EXPECT_EQ(desktop.rebar, nullptr);
  EXPECT_EQ(rebar.hwnd(), 0U);
  rebar.DestroyRebar();  // once is enough
}

TEST_F(RebarTest, ToolbarIsMadeFlatEitherWayAndListStyleOnlyOnRequest) {
  struct Toolbar : ToolbarControl {
    WindowHandle handle = 0;
    int refreshed = 0;
    WindowHandle hwnd() const override { return handle; }
    void Refresh() override { ++refreshed; }
  } toolbar;
  toolbar.handle = desktop.windows.Add("", "Toolbar", top->hwnd());
  desktop.windows.Add("", "Other", toolbar.handle);
  const auto inner = desktop.windows.Add("", "ToolbarWindow32", toolbar.handle);
  desktop.windows.SetStyle(inner, 0x1);
  rebar.TBMakeFlat(toolbar, false);
  EXPECT_EQ(desktop.windows.Style(inner), 0xFFFF8841U);
  rebar.TBMakeFlat(toolbar, true);
  EXPECT_EQ(desktop.windows.Style(inner), 0xFFFF9841U);
  EXPECT_EQ(toolbar.refreshed, 2);
}

TEST_F(RebarTest, ResizeKeepsTheContainersWidth) {
  Create();
  rebar.Resize(*top);
  EXPECT_THAT(desktop.rebar->place, ElementsAre(0, 0, 200, 0));
}

}  // namespace
}  // namespace corvane::tests
