#pragma once

#include <QTreeWidget>

#include "core/Numbers.h"
#include "recording/Recording.h"

// The columns of a block of a recording: name, unit, lowest, highest and a small picture each, the channels first. One
// that is none by its title, or that can't be taken, says so.
class ChannelList : public QTreeWidget {
    Q_OBJECT

  public:
    ChannelList(const UserNumbers& numbers, QWidget* parent);

    // The block must outlive what is shown; null shows nothing. Chooses the first channel.
    void Show(const recording::Block* block);
    // The chosen column; null with none.
    const recording::Column* Chosen() const;

    QSize sizeHint() const override;

  Q_SIGNALS:
    void ChosenChanged();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void Add(const recording::Column& column);
    void DrawPictures();
    QString Text(double value) const;

    const UserNumbers& numbers_;
    std::vector<const recording::Column*> columns_;  // as they are listed
};
