#include "core/Preferences.h"

#include <QDataStream>
#include <QIODevice>
#include <type_traits>

namespace {

// The fields in file order, for reading and writing alike.
template <typename Record, typename Visitor>
void VisitFields(Record& record, Visitor&& visit) {
    visit(record.MainWindowState);
    visit(record.MainLeft);
    visit(record.MainTop);
    visit(record.ComPortNumber);
    visit(record.ComBaudRate);
    visit(record.EditorWindowState);
    visit(record.EditorLeft);
    visit(record.EditorTop);
    visit(record.EditorWidth);
    visit(record.EditorHeight);
}

constexpr qsizetype kMarkSize = sizeof(kPreferencesMark) - 1;

}  // namespace

QByteArray EncodePreferences(const Preferences& preferences) {
    QByteArray record(kPreferencesMark, kMarkSize);
    QDataStream stream(&record, QIODevice::WriteOnly | QIODevice::Append);
    stream.setByteOrder(QDataStream::LittleEndian);
    VisitFields(preferences, [&stream](auto field) { stream << field; });
    return record;
}

bool DecodePreferences(const QByteArray& record, Preferences& preferences) {
    if (!record.startsWith(QByteArrayView(kPreferencesMark, kMarkSize))) {
        return false;
    }
    QDataStream stream(record.sliced(kMarkSize));
    stream.setByteOrder(QDataStream::LittleEndian);
    VisitFields(preferences, [&stream](auto& field) {
        std::remove_reference_t<decltype(field)> value{};
        stream >> value;
        if (stream.status() == QDataStream::Ok) {
            field = value;
        }
    });
    return stream.status() == QDataStream::Ok;
}
