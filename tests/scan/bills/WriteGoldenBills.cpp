// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// write_golden_bills: reads every sample and writes its golden file anew; golden files without a
// sample go. What has changed is then to be looked over before it is committed.

#include "tests/scan/bills/BillReader.h"
#include "tests/scan/bills/SampleBills.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdlib>
#include <iostream>

using namespace tovarin;

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList samples = sampleBills();
    for (const QString &sample : samplesWithGolden()) {
        if (!samples.contains(sample))
            QFile::remove(goldenPath(sample));
    }
    BillReader reader;
    for (const QString &sample : samples) {
        const QByteArray json = goldenJson(reader.read(sample));
        QFile file(goldenPath(sample));
        if (!file.open(QFile::WriteOnly) || file.write(json) != json.size()) {
            std::cerr << "cannot write " << qPrintable(file.fileName()) << '\n';
            return EXIT_FAILURE;
        }
    }
    std::cout << samples.size() << " golden files written\n";
    return EXIT_SUCCESS;
}
