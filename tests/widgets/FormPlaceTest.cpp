#include <gtest/gtest.h>

#include <QList>

#include "widgets/FormPlace.h"

namespace {

struct Case {
    const char* what;
    QPoint stored;
    QPoint expected;
};

void ExpectPlaces(QSize window, const QList<QRect>& screens, std::initializer_list<Case> cases) {
    for (const Case& place : cases) {
        const QPoint found = NearestPlace(QRect(place.stored, window), screens);
        EXPECT_TRUE(found == place.expected) << place.what << ": " << found.x() << ',' << found.y();
    }
}

TEST(NearestPlace, BringsAWindowInByTheLeastDistance) {
    ExpectPlaces({400, 300}, {QRect(0, 20, 1280, 1000)},
                 {{"inside", {200, 100}, {200, 100}},
                  {"touches the top left", {0, 20}, {0, 20}},
                  {"touches the bottom right", {880, 720}, {880, 720}},
                  {"sticks out on the left", {-1, 500}, {0, 500}},
                  {"sticks out at the top", {300, 19}, {300, 20}},
                  {"sticks out at the bottom right", {881, 721}, {880, 720}},
                  {"far away", {-2000, 2184}, {0, 720}}});
}

TEST(NearestPlace, CountsSeveralScreensTogetherAsFarAsAWindowMayLieAcrossThem) {
    // The right screen is lower and begins higher up, at a negative place; between y = 700 and 1000 it is not there.
    ExpectPlaces({400, 300}, {QRect(0, 0, 1000, 1000), QRect(1000, -100, 1000, 800)},
                 {{"across both", {800, 200}, {800, 200}},
                  {"on the right one alone", {1600, -100}, {1600, -100}},
                  {"out at the top of the left one", {700, -100}, {700, 0}},
                  {"out at the bottom of both", {850, 450}, {850, 400}},
                  {"in the corner that is not there", {1400, 720}, {1400, 400}},
                  {"in that corner, near the left one", {620, 690}, {600, 690}},
                  {"off to the right", {2100, 300}, {1600, 300}}});
    ExpectPlaces(
        {400, 300}, {QRect(0, 0, 1000, 1000), QRect(1200, 0, 1000, 1000)},
        {{"in the gap between two screens", {750, 100}, {600, 100}}, {"near the second", {1150, 100}, {1200, 100}}});
}

TEST(NearestPlace, StartsAWindowThatIsTooLargeAtATopLeftCorner) {
    const QList<QRect> screens{QRect(0, 20, 960, 520), QRect(960, 20, 960, 520)};
    ExpectPlaces({970, 530}, screens, {{"high", {200, 100}, {0, 20}}, {"on the right", {1000, 100}, {960, 20}}});
    ExpectPlaces({970, 500}, screens, {{"wide, with room across both", {200, 30}, {200, 30}}});
    ExpectPlaces({970, 530}, {}, {{"no screen", {200, 100}, {200, 100}}});
}

}  // namespace
