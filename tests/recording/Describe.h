#pragma once

#include <QBuffer>
#include <string>

#include "recording/Recording.h"
#include "recording/Units.h"
#include "support/PrintQt.h"

using Numbers = std::vector<std::size_t>;  // of rows, lines or columns

// What was read, in one line: the blocks with "||" between them, of each the channels with their values, the other
// columns in brackets, and the interval. Whoever cannot be taken has "!" and the sentence.
inline std::string DescribeBlock(const recording::Block& block) {
    std::string text;
    QString others;
    const recording::Column* first = nullptr;
    for (const recording::Column& column : block.columns) {
        if (column.role != recording::Role::Channel) {
            others += QString((others.isEmpty() ? QString() : QStringLiteral(", ")) + column.Title());
            continue;
        }
        first = first == nullptr ? &column : first;
        text += (text.empty() ? "" : "; ") + column.Title().toStdString() + ':';
        for (const double value : column.values) {
            text += ' ' + QString::number(value, 'g', 10).toStdString();
        }
        text += column.fault.isEmpty() ? "" : " ! " + column.fault.toStdString();
    }
    text += others.isEmpty() ? "" : " [" + others.toStdString() + ']';
    if (first != nullptr && first->timing.interval) {
        text += " every " + recording::WithPrefix(*first->timing.interval, QStringLiteral("s")).toStdString();
    }
    return text + (first != nullptr && !first->timing.times.empty() ? " uneven" : "");
}

inline std::string Describe(const recording::Outcome& outcome) {
    if (!outcome.recording) {
        return "! " + outcome.fault.toStdString();
    }
    std::string text;
    for (const recording::Block& block : outcome.recording->blocks) {
        text += (text.empty() ? "" : " || ") + DescribeBlock(block);
    }
    return text;
}

inline recording::Outcome ReadBytes(QByteArray bytes, const recording::Choice& choice = {}) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return recording::Read(buffer, choice);
}

inline std::string Describe(const std::string& text, const recording::Choice& choice = {}) {
    return Describe(ReadBytes(QByteArray::fromStdString(text), choice));
}
