#include "BarePictures.h"

#include <sqlite3.h>

namespace {

QPen Ink(const QColor& color, double width, Qt::PenCapStyle cap = Qt::SquareCap) {
    return {color, width, Qt::SolidLine, cap, Qt::RoundJoin};
}

const QColor kGrid(192, 192, 192);
const QColor kLightYellow(255, 255, 128);
const QColor kStrip(192, 192, 255);

}  // namespace

BarePictures::BarePictures(const MemorySize& size, QSize overview, QSize detail, int viewLeft, int viewRight)
    : size_(size),
      viewLeft_(viewLeft),
      viewRight_(viewRight),
      margin_((viewRight - viewLeft) / 50),
      overview_{QImage(overview, QImage::Format_RGB32), 0.0, static_cast<double>(size.LastAdr), 2047.0, -4094.0},
      detail_{QImage(detail, QImage::Format_RGB32), static_cast<double>(viewLeft - margin_),
              static_cast<double>(viewRight - viewLeft + 2 * margin_), 2060.0, -4120.0} {}

std::vector<BareRow> BarePictures::Read(sqlite3* database, const MemorySize& size) {
    std::vector<BareRow> rows;
    sqlite3_stmt* statement = nullptr;
    const std::string text = std::string("SELECT rowid, Adr, Value FROM ") + size.table + " ORDER BY Adr";
    sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        rows.push_back(
            {sqlite3_column_int64(statement, 0), sqlite3_column_int(statement, 1), sqlite3_column_int(statement, 2)});
    }
    sqlite3_finalize(statement);
    return rows;
}

std::vector<BareRow> BarePictures::ReadFile(const std::string& name, const MemorySize& size) {
    sqlite3* database = nullptr;
    sqlite3_open_v2(name.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    std::vector<BareRow> rows = Read(database, size);
    sqlite3_close(database);
    return rows;
}

void BarePictures::Draw(const std::vector<BareRow>& rows, bool dots) {
    DrawOverview(rows);
    DrawDetail(rows, dots);
}

void BarePictures::DrawOverview(const std::vector<BareRow>& rows) {
    QPainter painter(&overview_.image);
    painter.fillRect(overview_.image.rect(), QColor(255, 192, 128));
    painter.fillRect(overview_.Box(viewLeft_, -2047, viewRight_, 2047), kLightYellow);
    painter.setPen(Ink(kGrid, 2.0));
    painter.drawLine(overview_.Line(0, 0, size_.LastAdr, 0));
    for (int x = size_.gridFirst; x <= size_.gridLimit; x += size_.gridStep) {
        painter.setPen(Ink(kGrid, x == size_.gridCentre ? 2.0 : 1.0));
        painter.drawLine(overview_.Line(x, -2047, x, 2047));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Ink(Qt::black, 2.0));
    for (std::size_t i = 1; i < rows.size(); ++i) {
        painter.drawLine(overview_.Line(rows[i - 1].adr, rows[i - 1].value, rows[i].adr, rows[i].value));
    }
}

void BarePictures::DrawDetail(const std::vector<BareRow>& rows, bool dots) {
    QPainter painter(&detail_.image);
    painter.fillRect(detail_.image.rect(), kLightYellow);
    for (int x = size_.gridFirst; x <= size_.gridLimit; x += size_.gridStep) {
        if (viewLeft_ <= x && x <= viewRight_) {
            painter.setPen(Ink(kGrid, x == size_.gridCentre ? 2.0 : 1.0));
            painter.drawLine(detail_.Line(x, -2047, x, 2047));
        }
    }
    painter.setPen(Ink(kGrid, 2.0));
    painter.drawLine(detail_.Line(viewLeft_, 0, viewRight_, 0));
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen dot = Ink(Qt::red, 7.0, Qt::RoundCap);
    const QPen curve = Ink(Qt::black, 3.0);
    painter.setPen(curve);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (rows[i].adr < viewLeft_ || rows[i].adr > viewRight_) {
            continue;
        }
        if (dots) {
            painter.setPen(dot);
            painter.drawPoint(detail_.At(rows[i].adr, rows[i].value));
            painter.setPen(curve);
        }
        painter.drawLine(detail_.Line(rows[i - 1].adr, rows[i - 1].value, rows[i].adr, rows[i].value));
    }
    painter.fillRect(detail_.Box(viewLeft_ - margin_, -2060, viewLeft_, 2060), kStrip);
    painter.fillRect(detail_.Box(viewRight_, -2060, viewRight_ + margin_, 2060), kStrip);
    painter.fillRect(detail_.Box(viewLeft_, 2048, viewRight_, 2060), kStrip);
    painter.fillRect(detail_.Box(viewLeft_, -2060, viewRight_, -2048), kStrip);
}

void BarePictures::InvertCross(QPainter& overview, QPainter& detail, QPointF at) const {
    const auto strokes = [&at](const BarePicture& picture) {
        return std::array{picture.Line(1000, 0, 1000, -1000), picture.Line(at.x(), at.y(), at.x(), 0),
                          picture.Line(1000, -1000, at.x(), at.y())};
    };
    detail.setPen(Ink(Qt::blue, 1.0));
    detail.drawLine(detail_.Line(at.x(), 2047, at.x(), -2047));
    detail.drawLine(detail_.Line(viewLeft_, at.y(), viewRight_, at.y()));
    detail.setPen(Ink(Qt::darkGreen, 3.0));
    detail.drawLines(strokes(detail_).data(), 3);
    overview.setPen(Ink(Qt::darkGreen, 1.0));
    overview.drawLines(strokes(overview_).data(), 3);
}

void BarePictures::MoveCross(QPointF from, QPointF to, QImage& window) {
    {
        QPainter overview(&overview_.image);
        QPainter detail(&detail_.image);
        overview.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
        detail.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
        InvertCross(overview, detail, from);
        InvertCross(overview, detail, to);
    }
    QPainter painter(&window);
    painter.drawImage(0, 0, overview_.image);
    painter.drawImage(0, overview_.image.height(), detail_.image);
}
