// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "fuzz/Require.h"
#include "notifier/Notifier.h"
#include "platform/NotificationMessages.h"
#include "tests/support/ManualClock.h"
#include "tests/support/WaitFor.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimeZone>

#include <cstdint>
#include <map>
#include <optional>

using namespace std::chrono;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using NotificationMessages::Change;

/// Later than the clock of any machine, so that no timer of the kernel's rings.
constexpr Instant beginning = sys_days(2150y / 11 / 7) + 12h;

/// Later than nearly all moments that a message can name.
constexpr Instant end{milliseconds(std::int64_t{1} << 60)};

/// Shows everything at once.
class ShowingService final : public NotificationService {
public:
    void prepare(std::function<void(Presence)> answer) override { answer(Presence::there); }
    void post(const NotificationRequest &request, std::function<void(Outcome)> answer) override {
        posted.append(request);
        answer(Outcome::shown);
    }
    bool isShowing() const override { return false; }

    QList<NotificationRequest> posted;
};

/// What must be pending when nothing has come due, by identifier.
std::map<QString, NotificationRequest> lastOfEach(const QList<Change> &changes) {
    std::map<QString, NotificationRequest> last;
    for (const Change &change : changes) {
        if (const auto *const request = std::get_if<NotificationRequest>(&change)) {
            last[request->identifier] = *request;
        } else if (const auto *const removal =
                       std::get_if<NotificationMessages::RemovePending>(&change)) {
            for (const QString &identifier : removal->identifiers)
                last.erase(identifier);
        } else {
            last.clear();
        }
    }
    return last;
}

/// All that is expected was posted or is pending, once, and nothing else.
void checkPlaces(std::map<QString, NotificationRequest> expected,
                 const QList<NotificationRequest> &posted,
                 const QList<NotificationRequest> &pending) {
    for (const NotificationRequest &request : posted + pending) {
        const auto found = expected.find(request.identifier);
        require(found != expected.end() && found->second == request);
        expected.erase(found);
    }
    require(expected.empty());
}

void apply(const QList<Change> &changes) {
    const QTemporaryDir folder(u"/dev/shm/tovarin-fuzz-XXXXXX"_s);
    require(folder.isValid());
    const UserZone zone(QTimeZone("America/Sao_Paulo"));
    const std::map<QString, NotificationRequest> expected = lastOfEach(changes);
    ManualClock clock(beginning);
    ShowingService service;
    QList<NotificationRequest> pending;
    {
        Notifier notifier(clock, zone, folder.path(), service);
        require(notifier.change(changes));
        settle();
        pending = notifier.pending();
        checkPlaces(expected, service.posted, pending);
    }
    Notifier restarted(clock, zone, folder.path(), service);
    require(restarted.pending() == pending);
    clock.set(end);
    restarted.look();
    settle();
    checkPlaces(expected, service.posted, restarted.pending());
    for (const NotificationRequest &request : restarted.pending()) {
        const auto &trigger = std::get<CalendarTrigger>(request.trigger);
        const std::optional<Instant> due = zone.instantOf(trigger.day, trigger.time);
        require(!due || *due > end);
    }
}

void checkChanges(const QByteArray &json) {
    const std::optional<QList<Change>> changes = NotificationMessages::decodeChanges(json);
    if (!changes)
        return;
    const auto again = NotificationMessages::encodeChanges(*changes);
    require(again.count == changes->size());
    require(NotificationMessages::decodeChanges(again.json) == changes);
    apply(*changes);
}

void checkRequests(const QByteArray &json) {
    const auto requests = NotificationMessages::decodeRequests(json);
    if (!requests)
        return;
    for (const NotificationRequest &request : *requests)
        require(request.isValid());
    require(NotificationMessages::decodeRequests(NotificationMessages::encodeRequests(*requests)) ==
            requests);
}

} // namespace

} // namespace tovarin

/// The notifier's timers need an application.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    // As the notifier does.
    qputenv("QT_NO_GLIB", "1");
    static const QCoreApplication application(*argc, *argv);
    return 0;
}

/// What anybody on the session bus may send, and what the notifier may answer. Changes that are
/// understood are done by a notifier, which is started anew, and whose clock then goes to its end:
/// each request was posted once, or is for a day that never comes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace tovarin;
    const QByteArray json(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    checkChanges(json);
    checkRequests(json);
    return 0;
}
