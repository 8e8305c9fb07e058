// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/notifier/Machine.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <set>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

using Outcome = NotificationService::Outcome;
using NotificationMessages::Change;

constexpr std::array zoneNames = {"UTC", "America/Sao_Paulo", "Asia/Shanghai", "Pacific/Apia"};

struct Expected {
    int serial;
    NotificationRequest request; ///< Its body tells it from every other.
    Instant deadline;            ///< For intervals.
};

/// What a notifier has to do, written down as plainly as can be.
class Model {
public:
    void add(const NotificationRequest &request, Instant now) {
        remove(request.identifier);
        Expected added{++m_serials, request, {}};
        if (const auto *const trigger = std::get_if<TimeIntervalTrigger>(&request.trigger))
            added.deadline = now + trigger->interval;
        pending.append(added);
    }
    void remove(const QString &identifier) {
        pending.removeIf([&](const Expected &e) { return e.request.identifier == identifier; });
    }
    /// `onItsWay` is the body of what is being posted, if anything is.
    void look(Instant now, const UserZone &zone, const QString &onItsWay) {
        for (Expected &expected : pending) {
            if (const auto *const trigger =
                    std::get_if<TimeIntervalTrigger>(&expected.request.trigger))
                expected.deadline = std::min(expected.deadline, now + trigger->interval);
        }
        collect(now, zone, onItsWay);
    }
    void collect(Instant now, const UserZone &zone, const QString &onItsWay) {
        QList<Expected> come;
        for (const Expected &expected : pending) {
            if (moment(expected, zone) <= now)
                come.append(expected);
        }
        std::ranges::stable_sort(come, {}, [&](const Expected &e) { return moment(e, zone); });
        for (const Expected &expected : come) {
            remove(expected.request.identifier);
            due.removeIf([&](const Expected &other) {
                return other.request.identifier == expected.request.identifier &&
                       other.request.body != onItsWay;
            });
        }
        due += come;
    }
    /// What could not be shown is forgotten where a later one has its identifier.
    void fail(const QString &body) {
        const auto failed = std::ranges::find(
            due, body, [](const Expected &expected) { return expected.request.body; });
        const QString identifier = failed->request.identifier;
        if (std::ranges::count(due, identifier,
                               [](const Expected &e) { return e.request.identifier; }) > 1)
            due.erase(failed);
    }
    QStringList pendingIdentifiers() const {
        QStringList identifiers;
        for (const Expected &expected : pending)
            identifiers.append(expected.request.identifier);
        return identifiers;
    }

    QList<Expected> pending;
    QList<Expected> due; ///< In no order that counts: what is refused comes later.

private:
    static Instant moment(const Expected &expected, const UserZone &zone) {
        if (const auto *const trigger = std::get_if<CalendarTrigger>(&expected.request.trigger))
            return *zone.instantOf(trigger->day, trigger->time);
        return expected.deadline;
    }

    int m_serials = 0;
};

/// Does random things to a machine and the model, and compares them after each.
class Player {
public:
    explicit Player(unsigned seed) : m_random(seed) {}

    void step() {
        switch (below(13)) {
        case 0:
        case 1:
        case 2:
            change();
            break;
        case 3:
        case 4:
            moveClock();
            break;
        case 5:
            m_machine.travel(anyZone());
            m_model.look(m_machine.clock.now(), m_machine.zone, m_onItsWay);
            break;
        case 6:
            kill();
            break;
        case 7:
            m_machine.service.isThere = !m_machine.service.isThere;
            if (m_machine.service.isThere)
                m_machine.service.appear();
            break;
        case 8:
            m_machine.service.holdsAnswers = !m_machine.service.holdsAnswers;
            break;
        case 9:
            m_machine.service.outcome = below(3) == 0 ? Outcome::refused : Outcome::shown;
            break;
        case 10:
            m_machine.service.isSilent = below(4) == 0;
            break;
        default:
            answer();
            break;
        }
        settle();
        check();
    }

    /// Everything that is still expected comes.
    void finish() {
        FakeService &service = m_machine.service;
        service.outcome = Outcome::shown;
        service.holdsAnswers = false;
        service.isSilent = false;
        if (service.isPosting()) {
            noteShown(std::exchange(m_onItsWay, {}));
            service.answerPost(Outcome::shown);
        }
        settle();
        check();
        m_machine.clock.set(instant("2031-01-01T00:00:00Z"));
        m_model.look(m_machine.clock.now(), m_machine.zone, {});
        m_machine.look();
        if (!service.isThere)
            service.appear();
        settle();
        check();
        EXPECT_EQ(m_model.due.size(), 0);
        EXPECT_EQ(m_machine.pending(), QStringList());
        EXPECT_TRUE(m_machine.notifier().isIdle());
    }

    int shown() const { return m_shown; }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
    const char *anyZone() { return zoneNames[below(zoneNames.size())]; }

    NotificationRequest request() {
        NotificationRequest request =
            atTen("2025-06-01", u"id-"_s + QString::number(below(12)), QString::number(++m_bodies));
        if (below(3) == 0)
            request.trigger = TimeIntervalTrigger{milliseconds(1 + below(100'000'000))};
        else
            request.trigger =
                CalendarTrigger{civilDay("2025-06-01") + days(below(60)), minutes(below(1440))};
        return request;
    }

    void change() {
        const Instant now = m_machine.clock.now();
        m_model.collect(now, m_machine.zone, m_onItsWay);
        QList<Change> changes;
        for (unsigned i = below(6) + 1; i > 0; --i) {
            if (below(24) == 0) {
                changes.append(NotificationMessages::RemoveAllPending());
                m_model.pending.clear();
            } else if (below(6) == 0) {
                const QString identifier = u"id-"_s + QString::number(below(12));
                changes.append(NotificationMessages::RemovePending{{identifier}});
                m_model.remove(identifier);
            } else {
                changes.append(request());
                m_model.add(std::get<NotificationRequest>(changes.last()), now);
            }
        }
        m_model.collect(now, m_machine.zone, m_onItsWay);
        m_machine.change(changes);
    }

    Instant otherTime() {
        if (below(4) == 0)
            return m_machine.clock.now() - milliseconds(below(400'000'000));
        return m_machine.clock.now() + milliseconds(below(400'000'000));
    }

    void moveClock() {
        m_machine.clock.set(otherTime());
        m_model.look(m_machine.clock.now(), m_machine.zone, m_onItsWay);
        m_machine.look();
    }

    /// What is on its way then counts as shown.
    void kill() {
        if (m_machine.service.isPosting())
            noteShown(std::exchange(m_onItsWay, {}));
        m_machine.kill();
        if (below(2) == 0)
            m_machine.clock.set(otherTime());
        if (below(4) == 0)
            m_machine.zone = UserZone(QTimeZone(anyZone()));
        m_model.look(m_machine.clock.now(), m_machine.zone, {});
        m_machine.start();
    }

    void answer() {
        FakeService &service = m_machine.service;
        if (!service.isPosting())
            return;
        const Outcome outcome =
            std::array{Outcome::shown, Outcome::shown, Outcome::refused, Outcome::absent}[below(4)];
        const QString body = std::exchange(m_onItsWay, {});
        if (outcome == Outcome::shown)
            noteShown(body);
        else
            m_model.fail(body);
        service.answerPost(outcome);
    }

    void noteShown(const QString &body) {
        ASSERT_TRUE(m_once.insert(body).second) << "shown twice";
        ASSERT_EQ(m_model.due.removeIf([&](const Expected &e) { return e.request.body == body; }),
                  1);
        ++m_shown;
    }

    /// What was posted was due, and is still pending only if it should be.
    void check() {
        FakeService &service = m_machine.service;
        for (qsizetype i = 0; i < service.posted.size(); ++i) {
            ASSERT_TRUE(std::ranges::any_of(m_model.due, [&](const Expected &e) {
                return e.request.body == service.posted[i];
            })) << "it was not due";
            const bool isOnItsWay = service.isPosting() && i + 1 == service.posted.size();
            if (isOnItsWay)
                m_onItsWay = service.posted[i];
            else if (service.outcome == Outcome::shown)
                noteShown(service.posted[i]);
        }
        service.posted.clear();
        ASSERT_EQ(m_machine.pending(), m_model.pendingIdentifiers());
        ASSERT_EQ(m_machine.notifier().isIdle(),
                  m_model.pending.isEmpty() && m_model.due.isEmpty());
    }

    std::mt19937 m_random;
    Machine m_machine;
    Model m_model;
    QString m_onItsWay; ///< The body of what is being posted.
    int m_bodies = 0;
    int m_shown = 0;
    std::set<QString> m_once;
};

} // namespace

TEST(NotifierRandom, DeliversEachOnceWhateverHappens) {
    int shown = 0;
    for (unsigned seed = 1; seed <= 12; ++seed) {
        Player player(seed);
        for (int step = 0; step < 250 && !testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
            player.step();
        }
        SCOPED_TRACE("seed " + std::to_string(seed) + ", the end");
        if (!testing::Test::HasFailure())
            player.finish();
        shown += player.shown();
    }
    EXPECT_GT(shown, 500) << "the steps have to bring something about";
}

} // namespace tovarin
