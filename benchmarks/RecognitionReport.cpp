// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// recognition_report [--threads N] [--misses] MODELS FOLDER: reads every picture of the folder that
// has a truth file beside it (x.png, x.truth.json; see tools/bills) and prints a table: character
// error, shares of pictures whose fields were all read, rows whose value follows its label, time.

#include "scan/recognition/NeuralTextRecognizer.h"

#include <QDirIterator>
#include <QFile>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <numeric>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {
namespace {

/// Texts compare equal if a reader would say so: full and half width, the forms of quotes, dashes
/// and dots, and white space make no difference.
QString folded(const QString &text) {
    static const QRegularExpression blanks(u"\\s+"_s);
    static const std::map<QChar, QChar> alike = {
        {u'“', u'"'}, {u'”', u'"'}, {u'‘', u'\''}, {u'’', u'\''}, {u'–', u'-'},  {u'—', u'-'},
        {u'−', u'-'}, {u'•', u'·'}, {u'・', u'·'}, {u'。', u'.'}, {u'【', u'['}, {u'】', u']'}};
    QString result = text.normalized(QString::NormalizationForm_KC).remove(blanks);
    for (QChar &c : result) {
        if (const auto found = alike.find(c); found != alike.end())
            c = found->second;
    }
    return result;
}

int distance(const QString &a, const QString &b) {
    std::vector<int> row(static_cast<std::size_t>(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < a.size(); ++i) {
        int diagonal = row[0];
        row[0] = static_cast<int>(i) + 1;
        for (qsizetype j = 0; j < b.size(); ++j) {
            const auto at = static_cast<std::size_t>(j) + 1;
            const int replaced = diagonal + (a[i] != b[j] ? 1 : 0);
            diagonal = row[at];
            row[at] = std::min({replaced, row[at] + 1, row[at - 1] + 1});
        }
    }
    return row.back();
}

struct Truth {
    QString kind;
    QString group;
    QList<QStringList> rows;
    QStringList amounts;
    QStringList dates;
    QString name;
};

QStringList textsOf(const QJsonValue &list) {
    QStringList texts;
    for (const QJsonValue &text : list.toArray())
        texts.append(text.toString());
    return texts;
}

Truth readTruth(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonObject fields = object[u"fields"_s].toObject();
    Truth truth = {object[u"kind"_s].toString(),
                   object[u"group"_s].toString(),
                   {},
                   textsOf(fields[u"amounts"_s]),
                   textsOf(fields[u"dates_printed"_s]),
                   fields[u"name"_s].toString()};
    for (const QJsonValue &row : object[u"rows"_s].toArray())
        truth.rows.append(textsOf(row));
    return truth;
}

/// Sums over the pictures of one kind.
struct Score {
    int pictures = 0;
    qsizetype characters = 0;
    qsizetype errors = 0;
    int amounts = 0;
    int dates = 0;
    int names = 0;
    int spacedNames = 0;
    int all = 0;
    int pairs = 0;
    int pairsInOrder = 0;
    std::vector<double> seconds;
};

bool containsAll(const QString &text, const QStringList &parts) {
    return std::ranges::all_of(parts,
                               [&](const QString &part) { return text.contains(folded(part)); });
}

/// Whether the value was read right after its label, each near enough to be told.
bool follow(const QStringList &pieces, const QString &label, const QString &value) {
    const auto isAlike = [](const QString &read, const QString &expected) {
        return distance(read, expected) <= std::max<qsizetype>(1, expected.size() / 4);
    };
    for (qsizetype i = 0; i + 1 < pieces.size(); ++i) {
        if (isAlike(pieces[i], folded(label)) && isAlike(pieces[i + 1], folded(value)))
            return true;
    }
    return false;
}

Score scoreOf(const Truth &truth, const QStringList &read, double seconds) {
    QString expected;
    for (const QStringList &row : truth.rows)
        expected += folded(row.join(QString()));
    QStringList pieces;
    std::ranges::transform(read, std::back_inserter(pieces), folded);
    const QString lines = pieces.join(u'\n');

    Score score;
    score.pictures = 1;
    score.characters = expected.size();
    score.errors = std::min<qsizetype>(distance(expected, pieces.join(QString())), expected.size());
    score.amounts = containsAll(lines, truth.amounts) ? 1 : 0;
    score.dates = containsAll(lines, truth.dates) ? 1 : 0;
    score.names = containsAll(lines, {truth.name}) ? 1 : 0;
    score.spacedNames = read.join(u'\n').contains(truth.name) ? 1 : 0;
    score.all = score.amounts * score.dates * score.names;
    for (const QStringList &row : truth.rows) {
        if (row.size() == 2) {
            ++score.pairs;
            score.pairsInOrder += follow(pieces, row[0], row[1]) ? 1 : 0;
        }
    }
    score.seconds = {seconds};
    return score;
}

void add(Score &sum, const Score &score) {
    sum.pictures += score.pictures;
    sum.characters += score.characters;
    sum.errors += score.errors;
    sum.amounts += score.amounts;
    sum.dates += score.dates;
    sum.names += score.names;
    sum.spacedNames += score.spacedNames;
    sum.all += score.all;
    sum.pairs += score.pairs;
    sum.pairsInOrder += score.pairsInOrder;
    sum.seconds.insert(sum.seconds.end(), score.seconds.begin(), score.seconds.end());
}

void print(const QString &title, Score score) {
    const auto percent = [](auto part, auto whole) {
        return whole == 0 ? 100.0 : 100.0 * static_cast<double>(part) / static_cast<double>(whole);
    };
    std::ranges::sort(score.seconds);
    std::printf("| %-14s | %4d | %5.2f | %5.1f | %5.1f | %5.1f | %5.1f | %5.1f | %5.1f | %4.2f |\n",
                title.toUtf8().constData(), score.pictures, percent(score.errors, score.characters),
                percent(score.amounts, score.pictures), percent(score.dates, score.pictures),
                percent(score.names, score.pictures), percent(score.spacedNames, score.pictures),
                percent(score.all, score.pictures), percent(score.pairsInOrder, score.pairs),
                score.seconds[score.seconds.size() / 2]);
}

void printMisses(const QString &path, const Truth &truth, const QStringList &read,
                 const Score &score) {
    if (score.all == 1 && score.spacedNames == 1 && score.errors == 0)
        return;
    std::cout << path.toStdString() << ": " << score.errors << " errors"
              << (score.amounts == 0 ? ", amounts" : "") << (score.dates == 0 ? ", dates" : "")
              << (score.names == 0 ? ", name" : "")
              << (score.spacedNames < score.names ? ", blanks of the name" : "") << '\n';
    QStringList expected;
    for (const QStringList &row : truth.rows)
        expected += row;
    QStringList pieces;
    std::ranges::transform(read, std::back_inserter(pieces), folded);
    for (const QString &text : expected) {
        if (!pieces.contains(folded(text)))
            std::cout << "   - " << text.toStdString() << '\n';
    }
    for (const QString &text : read) {
        if (std::ranges::none_of(
                expected, [&](const QString &other) { return folded(other) == folded(text); }))
            std::cout << "   + " << text.toStdString() << '\n';
    }
}

std::string peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:"))
            return line.substr(6);
    }
    return "unknown";
}

int report(const QStringList &arguments) {
    const bool misses = arguments.contains(u"--misses"_s);
    const qsizetype threadsAt = arguments.indexOf(u"--threads"_s) + 1;
    const int threads = threadsAt > 0 ? arguments.value(threadsAt).toInt() : 2;
    const QString folder = arguments.last();
    NeuralTextRecognizer recognizer(arguments[arguments.size() - 2].toStdString(), threads);

    QStringList truths;
    for (QDirIterator it(folder, {u"*.truth.json"_s}, QDir::Files, QDirIterator::Subdirectories);
         it.hasNext();)
        truths.append(it.next());
    truths.sort();
    std::map<QString, Score> kinds;
    std::map<QString, Score> groups;
    for (const QString &path : truths) {
        const QFileInfo info(path);
        const QString stem = info.completeBaseName().chopped(u".truth"_s.size());
        QImage image;
        for (const QString &name : info.dir().entryList({stem + u".*"_s}, QDir::Files)) {
            QImageReader reader(info.dir().filePath(name));
            reader.setAutoTransform(true);
            if (!name.endsWith(u".json"_s) && image.isNull())
                image = reader.read();
        }
        if (image.isNull())
            continue;
        const Truth truth = readTruth(path);
        const auto began = std::chrono::steady_clock::now();
        const QList<TextObservation> observations = recognizer.recognize(image);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
        QStringList read;
        for (const TextObservation &observation : observations)
            read.append(observation.candidates.first().text);
        const Score score = scoreOf(truth, read, took.count());
        add(kinds[truth.group + u" "_s + truth.kind], score);
        add(groups[truth.group], score);
        if (misses)
            printMisses(stem, truth, read, score);
    }
    std::printf("| kind           |    n | err %% | amnt  | date  | name  | blank | all   | order "
                "| s    |\n"
                "|---|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n");
    for (const auto &[kind, score] : kinds)
        print(kind, score);
    for (const auto &[group, score] : groups)
        print(u"ALL "_s + group, score);
    std::printf("\npeak memory%s, %d threads\n", peakMemory().c_str(), threads);
    return EXIT_SUCCESS;
}

} // namespace
} // namespace tovarin

int main(int argc, char **argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    if (arguments.size() < 2) {
        std::cerr << "recognition_report [--threads N] [--misses] MODELS FOLDER\n";
        return EXIT_FAILURE;
    }
    try {
        return tovarin::report(arguments);
    } catch (const std::exception &fault) {
        std::cerr << fault.what() << '\n';
        return EXIT_FAILURE;
    }
}
