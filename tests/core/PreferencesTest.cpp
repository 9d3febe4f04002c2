#include <gtest/gtest.h>

#include <QString>

#include "core/Preferences.h"

namespace {

const Preferences kSample{.MainWindowState = 2,
                          .MainLeft = -100,
                          .MainTop = 0x0102,
                          .ComPortNumber = 3,
                          .ComBaudRate = 115200,
                          .EditorHeight = 4321};

TEST(PreferencesRecord, HasTheMarkAndTenLittleEndianNumbersAndComesBackWhole) {
    const QByteArray record = EncodePreferences(kSample);
    EXPECT_EQ(
        record.toHex(' '),
        QByteArray("35 32 37 36 64 65 66 30 32 02 00 9c ff 02 01 03 00 00 c2 01 00 00 00 69 00 00 00 40 1f e1 10"));
    Preferences read;
    EXPECT_TRUE(DecodePreferences(record + "behind", read));
    EXPECT_EQ(EncodePreferences(read), record);
}

}  // namespace
