#include "editor/RecordingReader.h"

#include <QFile>
#include <QFileInfo>
#include <atomic>
#include <new>

namespace {

constexpr int kFirstReportMs = 500;
constexpr int kReportMs = 100;
constexpr double kPercent = 100.0;

recording::Outcome Refused(const QString& fault) { return {std::nullopt, fault}; }

// What is no file, as a pipe, might never end.
recording::Outcome ReadFile(const QString& fileName, const recording::Choice& choice,
                            const recording::Progress& progress) {
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly)) {
        return Refused(QStringLiteral("The file can't be opened. Choose another one."));
    }
    try {
        return recording::Read(file, choice, progress);
    } catch (const std::bad_alloc&) {
        return Refused(QStringLiteral("The file is too large for the memory of this computer. Take a part of it."));
    }
}

}  // namespace

struct RecordingReader::Job {
    std::atomic<bool> givenUp{false};
    std::atomic<double> part{0.0};
    recording::Outcome outcome = {};  // once the thread has ended
};

RecordingReader::RecordingReader(QObject* parent) : QObject(parent) {
    connect(&timer_, &QTimer::timeout, this, [this] {
        timer_.start(kReportMs);
        Q_EMIT Advanced(static_cast<int>(job_->part * kPercent));
    });
}

RecordingReader::~RecordingReader() { GiveUp(); }

void RecordingReader::Read(const QString& fileName, const recording::Choice& choice) {
    GiveUp();
    outcome_ = {};
    job_ = std::make_shared<Job>();
    thread_.reset(QThread::create([job = job_, fileName, choice] {
        job->outcome = ReadFile(fileName, choice, [&job](double part) {
            job->part = part;
            return !job->givenUp;
        });
    }));
    connect(thread_.get(), &QThread::finished, this, [this, job = job_] { Finish(job); });
    thread_->start();
    timer_.start(kFirstReportMs);
}

// The end of the thread is short: it asks after each few lines.
void RecordingReader::GiveUp() {
    if (job_ != nullptr) {
        timer_.stop();
        job_->givenUp = true;
        thread_->wait();
        job_.reset();
    }
}

// One that was given up may have ended just then.
void RecordingReader::Finish(const std::shared_ptr<Job>& job) {
    if (job != job_) {
        return;
    }
    timer_.stop();
    thread_->wait();
    outcome_ = std::move(job->outcome);
    job_.reset();
    Q_EMIT Done();
}
