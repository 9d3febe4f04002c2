#pragma once

#include <QString>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

class QIODevice;

// Recordings of oscilloscopes, loggers and programs: delimited text with numbers. This is the public header of
// the module; recording/Resample.h brings the values to the addresses of a memory.
namespace recording {

class Table;

// What the user has chosen. It is not questioned; what is left open is found from the whole file.
struct Choice {
    std::optional<char> separator = {};    // between cells: '\t', ';', ',', '|' or ' ' for any number of blanks
    std::optional<char> decimalMark = {};  // '.' or ','
    // The user names columns by their number. A comma between whole numbers then separates cells, and numbers behind
    // words are samples as well.
    bool byNumber = false;
};

enum class Role {
    Channel,
    Time,  // or an index, or another axis
    Other  // may be a channel if the user says so: the second line of a peak detection, a count, a setting
};

// How the values of a column follow each other in time.
struct Timing {
    std::optional<double> interval;  // s, from row to row; none if unknown or not even
    std::optional<double> duration;  // s; of even rows, one interval for each
    // The time or another rising axis beside each row, if its steps are not even; its unit may be unknown. Else empty.
    std::span<const double> times;
};

// A column with numbers, in the rows of one block.
struct Column {
    std::size_t number = 0;  // of the cell in its line, from 1
    QString name;            // its title, without the unit; empty if there is none
    QString unit;            // of the values, "mV"; empty if there is none
    Role role = Role::Channel;
    // Why the values cannot be taken, a sentence for the user that says what to do; empty if they can.
    QString fault = {};
    std::size_t firstRow = 0;     // of the block, from 0, that has a value
    std::size_t rowsLeftOut = 0;  // rows at the start and the end of the block that have none
    std::size_t firstLine = 0;    // of the file, from 1
    std::size_t lastLine = 0;
    double lowest = 0.0;
    double highest = 0.0;
    // Two at least, finite; none if there is a fault. They belong to the Recording.
    std::span<const double> values = {};
    Timing timing = {};
    std::size_t block = 0;  // in Recording::blocks

    QString Title() const;  // CH1 (mV), or "column 2"
};

// How sentences call a column: column 2 "CH1".
QString NameOfColumn(std::size_t number, const QString& name);

// One run of rows with numbers. A file may hold several, one for each channel or segment.
struct Block {
    std::size_t firstLine = 0;
    std::size_t lastLine = 0;
    std::size_t rows = 0;
    std::vector<Column> columns = {};  // from the left

    // The columns that are channels by what the file tells; none if it calls all of them times.
    std::vector<const Column*> Channels() const;
};

// The samples of a memory by address, as the editor saves them.
struct AddressedSample {
    int address = 0;
    int value = 0;
    std::size_t line = 0;  // of the file, from 1
};

class Recording {
  public:
    std::vector<Block> blocks;     // in the order of the file; one at least, unless there is one addressed sample only
    std::size_t longest = 0;       // the block to begin with: the first one of the longest
    std::size_t linesLeftOut = 0;  // with a header or remarks; lines without a cell are not counted

    // The file has the title line "address,value", and below it nothing but pairs of whole numbers: these, in the order
    // of the file. The same file may be taken as a recording as well.
    std::vector<AddressedSample> addressed;
    // It has that title line, but this is wrong with it; a sentence for the user.
    QString addressedFault;

    Recording();
    ~Recording();
    Recording(Recording&& other) noexcept;
    Recording& operator=(Recording&& other) noexcept;

  private:
    friend class Assembly;
    std::unique_ptr<Table> table_;
};

// Called over and over while a file is read, with the part that is done, 0 to 1. False cancels the reading.
using Progress = std::function<bool(double part)>;

struct Outcome {
    std::optional<Recording> recording;
    // Why there is none, a sentence for the user that says what to do; empty if the reading was cancelled.
    QString fault;
};

// Reads a recording from an open device: a file, or anything else to its end. Takes time and memory by its length: for
// five million rows about a second, and 8 bytes for each number. Runs in any thread; nothing is shared.
Outcome Read(QIODevice& device, const Choice& choice = {}, const Progress& progress = {});

// The columns that a user means by "2", "CH1" or "2,CH2": numbers, or titles with or without their unit, in any case;
// a title may hold commas. Searched in the block `preferred` first, then in the others. Empty, with a sentence in
// `fault`, if one of them is not there or cannot be taken.
std::vector<const Column*> FindColumns(const Recording& recording, std::size_t preferred, const QString& text,
                                       QString* fault);

}  // namespace recording
