#include "editor/ChannelList.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <algorithm>

#include "editor/CurveLines.h"
#include "editor/Ink.h"

namespace {

enum ListColumn { kName, kUnit, kLowest, kHighest, kListColumns };

constexpr QSize kPictureSize(72, 20);
constexpr int kDigits = 5;

QPixmap PictureOf(const recording::Column& column, const QWidget& list) {
    const qreal ratio = list.devicePixelRatioF();
    QPixmap picture(kPictureSize * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(InkOn(list.palette(), 0.0));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(1.0, kPictureSize.height() - 2.0);
    painter.scale(kPictureSize.width() - 2.0, -(kPictureSize.height() - 4.0));
    QPen pen(InkOn(list.palette(), 1.0), 1.0);
    pen.setCosmetic(true);
    painter.setPen(pen);
    const auto lines = CurveLines(column.values, column.timing.times, kPictureSize.width());
    painter.drawLines(lines.data(), static_cast<int>(lines.size()));
    return picture;
}

QString KindOf(const recording::Column& column) {
    if (!column.fault.isEmpty()) {
        return QStringLiteral(" (can't be taken)");
    }
    switch (column.role) {
        case recording::Role::Time:
            return QStringLiteral(" (time)");
        case recording::Role::Other:
            return QStringLiteral(" (no channel)");
        case recording::Role::Channel:
            break;
    }
    return {};
}

int RankOf(const recording::Column* column) {
    switch (column->role) {
        case recording::Role::Channel:
            return 0;
        case recording::Role::Other:
            return 1;
        case recording::Role::Time:
            break;
    }
    return 2;
}

}  // namespace

ChannelList::ChannelList(const UserNumbers& numbers, QWidget* parent) : QTreeWidget(parent), numbers_(numbers) {
    setColumnCount(kListColumns);
    setHeaderLabels(
        {QStringLiteral("Channel"), QStringLiteral("Unit"), QStringLiteral("Lowest"), QStringLiteral("Highest")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setTabKeyNavigation(false);
    setIconSize(kPictureSize);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(kName, QHeaderView::Stretch);
    connect(this, &QTreeWidget::currentItemChanged, this, &ChannelList::ChosenChanged);
}

void ChannelList::Show(const recording::Block* block) {
    const QSignalBlocker silent(this);  // one change, however many items come and go
    clear();
    columns_.clear();
    if (block != nullptr) {
        for (const recording::Column& column : block->columns) {
            columns_.push_back(&column);
        }
        std::ranges::stable_sort(columns_, {}, RankOf);
        for (const recording::Column* const column : columns_) {
            Add(*column);
        }
        const auto usable = std::ranges::find_if(columns_, [](const auto* column) { return column->fault.isEmpty(); });
        setCurrentItem(topLevelItem(usable == columns_.end() ? 0 : static_cast<int>(usable - columns_.begin())));
    }
    DrawPictures();
}

void ChannelList::Add(const recording::Column& column) {
    const QString name = column.name.isEmpty() ? recording::NameOfColumn(column.number, {}) : column.name;
    const bool known = column.fault.isEmpty();
    auto* const item =
        new QTreeWidgetItem(this, {name + KindOf(column), column.unit, known ? Text(column.lowest) : QString(),
                                   known ? Text(column.highest) : QString()});
    for (const int number : {kLowest, kHighest}) {
        item->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
    }
    item->setToolTip(kName, column.fault);
}

const recording::Column* ChannelList::Chosen() const {
    const int row = indexOfTopLevelItem(currentItem());
    return row < 0 ? nullptr : columns_[static_cast<std::size_t>(row)];
}

QSize ChannelList::sizeHint() const { return {fontMetrics().averageCharWidth() * 50 + kPictureSize.width(), 140}; }

void ChannelList::changeEvent(QEvent* event) {
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        DrawPictures();
    }
}

void ChannelList::DrawPictures() {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const QPixmap picture = PictureOf(*columns_[i], *this);
        QIcon icon(picture);
        icon.addPixmap(picture, QIcon::Selected);  // else the toolkit tints it
        topLevelItem(static_cast<int>(i))->setIcon(kName, icon);
    }
}

QString ChannelList::Text(double value) const {
    return QString::number(value, 'g', kDigits).replace(u'.', QChar(ushort{numbers_.DecimalSeparator}));
}
