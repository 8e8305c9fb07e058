// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// Stands in for tovarin-scanner. The name of a file tells what it does: "bill", with anything
// behind it, gives a draft of that name, whose notes hold the process id, the language, the time
// zone, the path and how many files this process has been asked for; the others misbehave.

#include "scan/job/ScanMessages.h"

#include <QFileInfo>

#include <csignal>
#include <iostream>
#include <string>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

using namespace tovarin;
using namespace Qt::Literals::StringLiterals;

namespace {

void say(const QByteArray &text) {
    std::cout.write(text.constData(), text.size()).flush();
}

Subscription draft(const QString &name, const QString &path, const char *language, int asked) {
    const QStringList notes = {QString::number(getpid()), QString::fromLocal8Bit(language),
                               qEnvironmentVariable("TZ"), path, QString::number(asked)};
    return {.id = QUuid::createUuid(),
            .name = name,
            .amount = 12.5,
            .currency = u"CNY"_s,
            .startDate = Instant(std::chrono::milliseconds(1735689600000)),
            .category = u"其他"_s,
            .notes = notes.join(u'\n'),
            .serviceID = std::nullopt};
}

QByteArray draftAnswer(const QString &name) {
    return ScanMessages::encodeAnswer(draft(name, {}, "en", 1));
}

[[noreturn]] void hang() {
    for (;;)
        pause();
}

[[noreturn]] void crash() {
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    // Not abort(): a sanitizer would print its findings.
    raise(SIGKILL);
    std::_Exit(EXIT_FAILURE);
}

/// More than a scanner may keep, and keeps it.
void takeMemory() {
    static std::vector<char> memory;
    memory.assign(std::size_t{300} << 20, 'x');
}

void behaveAs(const QString &kind) {
    if (kind == u"crash")
        crash();
    if (kind == u"hang")
        hang();
    if (kind == u"leave")
        std::_Exit(EXIT_SUCCESS);
    if (kind == u"ignore end") {
        std::signal(SIGTERM, SIG_IGN);
        hang();
    }
    if (kind == u"half") {
        say(draftAnswer(u"half"_s).first(20));
        std::_Exit(EXIT_SUCCESS);
    }
    if (kind == u"half and hang") {
        say(draftAnswer(u"half"_s).first(20));
        hang();
    }
    if (kind == u"flood") {
        for (const QByteArray block(64 * 1024, 'x');;)
            say(block);
    }
    if (kind == u"forged") {
        Subscription other = draft(kind, {}, "en", 1);
        other.id = QUuid(u"11111111-2222-4333-8444-555555555555"_s);
        other.isActive = false;
        other.serviceID = u"netflix"_s;
        say(ScanMessages::encodeAnswer(other));
    }
    if (kind == u"unnamed")
        say(draftAnswer({}));
    if (kind == u"unpriced") {
        Subscription free = draft(kind, {}, "en", 1);
        free.amount = 0;
        say(ScanMessages::encodeAnswer(free));
    }
    if (kind == u"nothing")
        say("null\n");
    if (kind == u"junk")
        say("\0\xff junk\n"_ba);
    if (kind == u"wrong field")
        say(draftAnswer(u"x"_s).replace("monthly", "daily"));
    if (kind == u"empty line")
        say("\n");
    if (kind == u"empty list")
        say("[]\n");
    if (kind == u"too much")
        say(draftAnswer(u"x"_s) + draftAnswer(u"y"_s));
    if (kind == u"too long")
        say(QByteArray(ScanMessages::longestAnswer, ' ') + draftAnswer(u"x"_s));
    if (kind == u"much on the side") {
        std::cerr << std::string(4 * 1024 * 1024, 'e') << std::flush;
        say(draftAnswer(kind));
    }
}

} // namespace

int main(int argc, char **argv) {
    int asked = 0;
    for (std::string line; std::getline(std::cin, line);) {
        const std::optional<QString> path =
            ScanMessages::decodeRequest(QByteArray::fromStdString(line));
        if (!path)
            return EXIT_FAILURE;
        ++asked;
        const QString name = QFileInfo(*path).completeBaseName();
        if (name == u"bill that costs memory")
            takeMemory();
        if (name.startsWith("bill"_L1))
            say(ScanMessages::encodeAnswer(draft(name, *path, argc > 1 ? argv[1] : "", asked)));
        else
            behaveAs(name);
    }
    return EXIT_SUCCESS;
}
