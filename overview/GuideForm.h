#pragma once

#include <QDialog>
#include <QStringList>

// The form `guide`: the pages that tell how each task is done, with their pictures, as they are installed with the
// program. Closes with Escape.
class GuideForm : public QDialog {
    Q_OBJECT

  public:
    GuideForm(const QString& contents, QWidget* parent);
};

// Shows the guide without waiting for it. The owner has one at most: a second call brings that one to the front. False
// if there is no guide.
bool ShowGuide(QWidget& owner, const QStringList& folders);
