#include "core/FrequencyDisplay.h"

int FrequencyUnitIndex(double hertz) {
    if (hertz < 1.0e3) {
        return 0;
    }
    return hertz < 1.0e6 ? 1 : 2;
}
