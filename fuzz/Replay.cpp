#include <QDir>

#include "Fuzz.h"

// Stands in for the fuzzer where there is none: gives it each file of a folder.
int main(int argc, char* argv[]) {
    const QDir folder(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    const QStringList names = folder.entryList(QDir::Files);
    for (const QString& name : names) {
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout);
        QFile file(folder.filePath(name));
        Require(file.open(QIODevice::ReadOnly), "a seed can be read");
        const QByteArray seed = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(seed.constData()),
                               static_cast<std::size_t>(seed.size()));
    }
    return names.isEmpty() ? 1 : 0;
}
