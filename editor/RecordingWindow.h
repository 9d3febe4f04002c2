#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <memory>
#include <optional>

#include "editor/ChannelList.h"
#include "editor/EditMode.h"
#include "editor/RecordingPreview.h"
#include "editor/RecordingReader.h"
#include "editor/StoreFaults.h"
#include "waveform/RecordedWave.h"
#include "waveform/RecordingFill.h"
#include "widgets/OptionGroup.h"

// The window `recording`, "Open recording": modal to the editor, for the file, the target and the size that this has
// when it opens. It reads the recording in the background, and is accepted when the samples are where the user wants
// them; a failure is told in a message box, and the window stays.
class RecordingWindow : public QDialog {
    Q_OBJECT

  public:
    RecordingWindow(const EditorContext& context, EditMode& mode, StoreFaults& faults, const QString& fileName,
                    QWidget* editor);

    // Closes, with nothing written, if the editor has gone over to another file, size or mode.
    void FollowEditor();

  private:
    // Layout (RecordingLayout.cpp)
    void MakeControls();
    void MakeChoices();
    void MakeResult();
    void Arrange();
    QLayout* ArrangeFile();
    QLayout* ArrangeChannels();
    QLayout* ArrangeStretch();
    QLayout* ArrangeChoices();
    void OrderTabs();

    void ConnectControls();
    void ReadFile();
    void ShowOutcome();
    void TakeAddresses(std::vector<recording::AddressedSample> samples);
    void ChooseUse();
    void ShowBlock();
    void ShowColumn();
    void ChooseRows(std::size_t first, std::size_t last);
    // All that follows from what is chosen.
    void Follow();
    void FollowRecording();
    void FollowAddressed();
    void ShowFound(const QString& fault);
    void ShowReproduction(const Reproduction& reproduction);
    void ShowNoReproduction(const QString& remark);

    bool IsOutdated() const;
    const recording::Recording* Read() const;
    const recording::Block* ChosenBlock() const;
    RecordingUse Use() const { return static_cast<RecordingUse>(use->Selected()); }
    // The file has addresses, and nobody wants it otherwise.
    bool TakesAsItStands() const;
    // They are fewer than the memory has.
    bool LacksAddresses() const;
    std::size_t AddressesWanted() const;

    void recording_cbok_Click();
    bool Apply();

    EditorContext context_;
    EditMode& mode_;
    StoreFaults& faults_;
    EditorState& state_;
    const QString recordingName_;
    const QString settingName_;
    const EditTarget target_;
    const MemorySize& size_;
    RecordingReader reader_{this};
    std::vector<qint16> samples_;          // of a recording; empty if it can't be taken
    std::vector<double> addressedValues_;  // of a table with addresses, for the preview
    std::vector<double> addressedPlaces_;  // beside them
    bool useIsChosen_ = false;
    bool showing_ = false;  // controls change, but not by the user

    QLineEdit* file = nullptr;
    QComboBox* separator = nullptr;
    QComboBox* decimal = nullptr;
    QComboBox* block = nullptr;
    QLabel* blockTitle = nullptr;
    QCheckBox* asrecording = nullptr;
    QLabel* found = nullptr;
    QProgressBar* progress = nullptr;
    ChannelList* channels = nullptr;
    RecordingPreview* preview = nullptr;
    QSpinBox* first = nullptr;
    QSpinBox* last = nullptr;
    QPushButton* whole = nullptr;
    QWidget* stretch = nullptr;
    std::unique_ptr<OptionGroup> use;
    QSpinBox* addresses = nullptr;
    std::unique_ptr<OptionGroup> scale;
    QLineEdit* frequency = nullptr;
    QLineEdit* level = nullptr;
    QLineEdit* offset = nullptr;
    QLabel* frequencyUnit = nullptr;
    QLabel* remark = nullptr;
    QPushButton* cbok = nullptr;
    QPushButton* cbcancel = nullptr;
};
