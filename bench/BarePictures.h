#pragma once

#include <QImage>
#include <QPainter>
#include <string>
#include <vector>

#include "core/MemorySize.h"

struct sqlite3;

struct BareRow {
    qint64 id;
    int adr;
    int value;
};

// A picture drawn with the toolkit's painter alone, in a user scale.
struct BarePicture {
    QImage image;
    double left, width, top, height;

    QPointF At(double x, double y) const {
        return {(x - left) / width * image.width(), (y - top) / height * image.height()};
    }
    QLineF Line(double x1, double y1, double x2, double y2) const { return {At(x1, y1), At(x2, y2)}; }
    QRectF Box(double x1, double y1, double x2, double y2) const { return QRectF(At(x1, y1), At(x2, y2)).normalized(); }
};

// What the editor shows of a memory, with the engine's and the toolkit's own calls alone: the floor of its
// figures.
class BarePictures {
  public:
    BarePictures(const MemorySize& size, QSize overview, QSize detail, int viewLeft, int viewRight);

    static std::vector<BareRow> Read(sqlite3* database, const MemorySize& size);
    static std::vector<BareRow> ReadFile(const std::string& name, const MemorySize& size);

    // The same lines, dots, boxes and grid as the editor's, stroke by stroke.
    void Draw(const std::vector<BareRow>& rows, bool dots);
    // The crosshair and a line with two risers, taken off at `from` and put in at `to`, in both pictures; then both
    // pictures put into a window's.
    void MoveCross(QPointF from, QPointF to, QImage& window);

  private:
    void DrawOverview(const std::vector<BareRow>& rows);
    void DrawDetail(const std::vector<BareRow>& rows, bool dots);
    void InvertCross(QPainter& overview, QPainter& detail, QPointF at) const;

    const MemorySize& size_;
    int viewLeft_;
    int viewRight_;
    int margin_;
    BarePicture overview_;
    BarePicture detail_;
};
