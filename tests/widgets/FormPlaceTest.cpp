#include <gtest/gtest.h>

#include "widgets/FormPlace.h"

namespace {

TEST(NearestPlace, BringsAWindowInByTheLeastDistance) {
    const QList<QRect> one{QRect(0, 20, 1280, 1000)};
    // The right screen is lower and begins higher up, at a negative place; between y = 700 and 1000 it is not there.
    const QList<QRect> stepped{QRect(0, 0, 1000, 1000), QRect(1000, -100, 1000, 800)};
    const QList<QRect> apart{QRect(0, 0, 1000, 1000), QRect(1200, 0, 1000, 1000)};
    const QList<QRect> small{QRect(0, 20, 960, 520), QRect(960, 20, 960, 520)};
    const QSize common(400, 300);
    const std::tuple<const char*, QList<QRect>, QSize, QPoint, QPoint> cases[]{
        {"inside", one, common, {200, 100}, {200, 100}},
        {"touches the top left", one, common, {0, 20}, {0, 20}},
        {"sticks out on the left", one, common, {-1, 500}, {0, 500}},
        {"sticks out at the bottom right", one, common, {881, 721}, {880, 720}},
        {"far away", one, common, {-2000, 2184}, {0, 720}},
        {"on the right one alone", stepped, common, {1600, -100}, {1600, -100}},
        {"out at the top of the left one", stepped, common, {700, -100}, {700, 0}},
        {"out at the bottom of both", stepped, common, {850, 450}, {850, 400}},
        {"in the corner that is not there", stepped, common, {1400, 720}, {1400, 400}},
        {"in that corner, near the left one", stepped, common, {620, 690}, {600, 690}},
        {"in the gap between two screens", apart, common, {750, 100}, {600, 100}},
        {"near the second", apart, common, {1150, 100}, {1200, 100}},
        {"too large", small, {970, 530}, {200, 100}, {0, 20}},
        {"too large, on the right", small, {970, 530}, {1000, 100}, {960, 20}},
        {"wide, with room across both", small, {970, 500}, {200, 30}, {200, 30}},
        {"no screen", {}, common, {200, 100}, {200, 100}}};
    for (const auto& [what, screens, size, stored, expected] : cases) {
        const QPoint found = NearestPlace(QRect(stored, size), screens);
        EXPECT_EQ(std::pair(found.x(), found.y()), std::pair(expected.x(), expected.y())) << what;
        const QSize held = QLatin1StringView(what).startsWith(u"too large") ? QSize(960, 520) : size;
        EXPECT_TRUE(FittingPlace(QRect(stored, size), screens) == QRect(expected, held)) << what;
    }
}

}  // namespace
