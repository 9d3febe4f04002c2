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
    EXPECT_EQ(DecodePreferences(record + "behind", read), PreferencesOutcome::Read);
    EXPECT_EQ(EncodePreferences(read), record);
}

TEST(PreferencesRecord, WithAnotherMarkChangesNothing) {
    for (const QByteArray& record : {QByteArray(), QByteArray("5276def0"), QByteArray("5276def01").leftJustified(31)}) {
        Preferences read;
        EXPECT_EQ(DecodePreferences(record, read), PreferencesOutcome::WrongMark);
        EXPECT_EQ(EncodePreferences(read), EncodePreferences(Preferences{}));
    }
}

TEST(PreferencesRecord, CutShortKeepsTheFieldsReadSoFar) {
    Preferences read;
    // The end falls into the middle of the baud rate.
    EXPECT_EQ(DecodePreferences(EncodePreferences(kSample).first(19), read), PreferencesOutcome::TooShort);
    EXPECT_EQ(read.MainLeft, -100);
    EXPECT_EQ(read.ComPortNumber, 3);
    EXPECT_EQ(read.ComBaudRate, 19200);
    EXPECT_EQ(read.EditorHeight, 6000);
}

}  // namespace
