#include "storage/TableText.h"

#include <QSaveFile>

QByteArray TableText(std::span<const Record> records) {
    QByteArray text(kTableTitle);
    text += '\n';
    for (const Record& record : records) {
        text += QByteArray::number(record.Adr) + ',' + QByteArray::number(record.Value) + '\n';
    }
    return text;
}

bool SaveTableText(const QString& fileName, std::span<const Record> records) {
    QSaveFile file(fileName);
    const QByteArray text = TableText(records);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
}
