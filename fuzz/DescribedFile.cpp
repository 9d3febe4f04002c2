#include "DescribedFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QFile>
#include <algorithm>
#include <limits>
#include <optional>

#include "Fuzz.h"

namespace {

using Words = QList<QByteArray>;

constexpr int kMostRows = 1000;

std::string Quoted(QByteArray name) { return '"' + name.replace('"', "").replace('\0', "").toStdString() + '"'; }

class DatabaseWriter {
  public:
    explicit DatabaseWriter(const QString& name)
        : database_(name.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE) {
        database_.exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN");
    }
    void Commit() {
        insert_.reset();
        database_.exec("COMMIT");
    }

    // What the engine refuses, such as a second table of the same name, is left out.
    void Take(const Words& words) {
        try {
            const QByteArray& verb = words.front();
            if (verb == "table" && words.size() > 2) {
                MakeTable(words[1], words.sliced(2));
            } else if (verb == "view" && words.size() > 2) {
                database_.exec("CREATE VIEW " + Quoted(words[1]) + " AS SELECT * FROM " + Quoted(words[2]));
            } else if (verb == "rise" || verb == "copies") {
                Repeat(words.value(1).toInt(), verb == "rise");
            } else {
                row_ = words;
                Insert();
            }
        } catch (const SQLite::Exception&) {
            return;
        }
    }

  private:
    void MakeTable(const QByteArray& name, Words columns) {
        insert_.reset();
        const bool keyed = columns.size() > 1 && columns.back() == "keyed";
        if (keyed) {
            columns.removeLast();
        }
        std::string list;
        std::string places;
        for (const QByteArray& column : columns) {
            const qsizetype colon = column.indexOf(':');
            list += (list.empty() ? "" : ", ") + Quoted(colon < 0 ? column : column.first(colon)) +
                    (colon < 0 ? "" : ' ' + Quoted(column.sliced(colon + 1)));
            places += places.empty() ? "?" : ", ?";
        }
        const std::string key = keyed ? ", PRIMARY KEY (" + Quoted(columns.front().split(':').front()) + ")" : "";
        database_.exec("CREATE TABLE " + Quoted(name) + " (" + list + key + ')' + (keyed ? " WITHOUT ROWID" : ""));
        insert_.emplace(database_, "INSERT INTO " + Quoted(name) + " VALUES (" + places + ')');
    }

    void Repeat(int times, bool rise) {
        for (int i = 0; i < std::min(times, kMostRows) && !row_.isEmpty(); ++i) {
            bool whole = false;
            const qint64 first = row_.front().toLongLong(&whole);
            if (rise && whole && first < std::numeric_limits<qint64>::max()) {
                row_.front() = QByteArray::number(first + 1);
            }
            Insert();
        }
    }

    void Insert() {
        if (!insert_ || ++rows_ > kMostRows) {
            return;
        }
        insert_->clearBindings();
        insert_->tryReset();
        for (int i = 0; i < std::min(static_cast<int>(row_.size()), insert_->getBindParameterCount()); ++i) {
            BindCell(i + 1, row_[i]);
        }
        insert_->exec();
    }

    void BindCell(int index, const QByteArray& cell) {
        bool isNumber = false;
        if (const qint64 whole = cell.toLongLong(&isNumber); isNumber) {
            insert_->bind(index, int64_t{whole});
        } else if (const double number = cell.toDouble(&isNumber); isNumber) {
            insert_->bind(index, number);
        } else if (cell.startsWith('x')) {
            const QByteArray bytes = QByteArray::fromHex(cell.sliced(1));
            insert_->bind(index, static_cast<const void*>(bytes.constData()), static_cast<int>(bytes.size()));
        } else if (cell != "-") {
            insert_->bind(index, cell.sliced(cell.startsWith('\'') ? 1 : 0).toStdString());
        }
    }

    SQLite::Database database_;
    std::optional<SQLite::Statement> insert_;
    Words row_;
    int rows_ = 0;
};

}  // namespace

void DescribedFile::Make(const QByteArray& text) {
    QFile::remove(name_);
    raw_ = text.startsWith("SQLite");
    if (raw_) {
        QFile file(name_);
        Require(file.open(QIODevice::WriteOnly) && file.write(text) == text.size(), "a folder to write to");
    } else {
        DatabaseWriter writer(name_);
        const QList<QByteArray> lines = text.split('\n');
        for (const QByteArray& line : lines) {
            writer.Take(line.simplified().split(' '));
        }
        writer.Commit();
    }
    content_ = Content();
}

QByteArray DescribedFile::Content() const {
    QFile file(name_);
    Require(file.open(QIODevice::ReadOnly), "the file is there");
    return file.readAll();
}

void DescribedFile::RequireUntouched() const {
    Require(Content() == content_, "reading changes no file");
    Require(QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size() == 1,
            "reading leaves nothing beside the file");
}
