#include <QDir>

#include "Fuzz.h"

// Stands in for the fuzzer where there is none: gives it each file of the folders, whatever options stand before them.
int main(int argc, char* argv[]) {
    int seeds = 0;
    for (int i = 1; i < argc; ++i) {
        const QDir folder(QString::fromLocal8Bit(argv[i]));
        for (const QString& name : argv[i][0] == '-' ? QStringList() : folder.entryList(QDir::Files)) {
            std::printf("%s\n", qPrintable(name));
            std::fflush(stdout);
            QFile file(folder.filePath(name));
            Require(file.open(QIODevice::ReadOnly), "a seed can be read");
            const QByteArray seed = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(seed.constData()),
                                   static_cast<std::size_t>(seed.size()));
            ++seeds;
        }
    }
    return seeds == 0 ? 1 : 0;
}
