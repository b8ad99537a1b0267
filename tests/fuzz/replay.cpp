// Runs every file of a target's corpus, so that a corrected mistake does not return unnoticed.

#include "fuzztargets.h"

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FOLDER...\nthe last part of a folder names its target\n",
                     argv[0]);
        return 2;
    }
    for (int i = 1; i < argc; ++i) {
        const QString folder = QString::fromLocal8Bit(argv[i]);
        const QByteArray name = QFileInfo(folder).fileName().toUtf8();
        const FuzzTargets::Target target = FuzzTargets::byName(name);
        int files = 0;
        for (QDirIterator it(folder, QDir::Files); target && it.hasNext(); ++files) {
            QFile file(it.next());
            if (!file.open(QIODevice::ReadOnly))
                return 1;
            std::fprintf(stderr, "%s\n", qPrintable(file.fileName()));
            target(file.readAll());
        }
        std::fprintf(stdout, "%s: %d inputs\n", name.constData(), files);
        if (files == 0)
            return 1;
    }
    return 0;
}
