#include <gtest/gtest.h>

#include "editor/ViewRules.h"

namespace {

TEST(ViewRules, KeepADragOnTheAxisAndWideEnough) {
    EXPECT_EQ(ZoomView(141, 100, 4095), (View{100, 141}));
    EXPECT_EQ(ZoomView(140, 135, 4095), (View{135, 175}));
    EXPECT_EQ(ZoomView(4080, 4090, 4095), (View{4055, 4095}));
    EXPECT_EQ(ZoomView(10, -300, 4095), (View{0, 40}));
    EXPECT_EQ(ZoomView(-5, 20000, 16384), (View{0, 16384}));
}

TEST(ViewRules, PageByHalfTheViewFromAQuarterOfTheStrip) {
    EXPECT_EQ(PageView({1000, 2000}, 994.9F, 4095), (View{500, 1500}));
    EXPECT_EQ(PageView({1000, 2000}, 995.0F, 4095), std::nullopt);
    EXPECT_EQ(PageView({1000, 2000}, 2005.0F, 4095), std::nullopt);
    EXPECT_EQ(PageView({1000, 2000}, 2005.1F, 4095), (View{1500, 2500}));
    EXPECT_EQ(PageView({1000, 1101}, 900.0F, 4095), (View{950, 1051}));
    EXPECT_EQ(PageView({1000, 1103}, 1200.0F, 4095), (View{1052, 1155}));
    EXPECT_EQ(PageView({3000, 4000}, 4020.0F, 4095), (View{3095, 4095}));
    EXPECT_EQ(PageView({200, 1200}, 180.0F, 4095), (View{0, 1000}));
    EXPECT_EQ(PageView({3095, 4095}, 4110.0F, 4095), std::nullopt);
    EXPECT_EQ(PageView({0, 1000}, -20.0F, 4095), std::nullopt);
}

TEST(ViewRules, FitTheViewToASmallerAxis) {
    EXPECT_EQ(FitView({4095, 4200}, 4095), (View{1000, 2000}));
    EXPECT_EQ(FitView({4000, 5000}, 4095), (View{3095, 4095}));
    EXPECT_EQ(FitView({3000, 9000}, 4095), (View{0, 4095}));
    EXPECT_EQ(FitView({5000, 16384}, 16384), (View{5000, 16384}));
}

}  // namespace
