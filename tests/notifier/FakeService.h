// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/NotificationService.h"

#include <QStringList>

#include <utility>

namespace tovarin {

/// A service that shows what the test lets it.
class FakeService final : public NotificationService {
public:
    FakeService() : NotificationService(nullptr) {}

    void prepare(std::function<void(Presence)> answer) override {
        ++questions;
        if (isStartedByQuestions && !isThere)
            appear();
        if (holdsQuestions)
            m_question = std::move(answer);
        else
            answer(isSilent ? Presence::silent : isThere ? Presence::there : Presence::absent);
    }

    void post(const NotificationRequest &request, std::function<void(Outcome)> answer) override {
        if (losesPosts)
            return;
        posted.append(request.body);
        if (diesOfPosts) {
            isThere = false;
            answer(Outcome::absent);
            return;
        }
        if (holdsAnswers)
            m_answer = std::move(answer);
        else
            answer(outcome);
    }

    bool isShowing() const override { return showing; }

    bool isPosting() const { return m_answer != nullptr; }
    void answerPost(Outcome answer) { std::exchange(m_answer, nullptr)(answer); }
    void answerQuestion(Presence answer) { std::exchange(m_question, nullptr)(answer); }

    /// The process that was to hear the answers has died.
    void forgetAnswers() {
        m_answer = nullptr;
        m_question = nullptr;
    }

    void appear() {
        isThere = true;
        Q_EMIT appeared();
    }
    void showNothing() {
        showing = false;
        Q_EMIT shownNothing();
    }

    bool isThere = true;
    bool isSilent = false;
    bool isStartedByQuestions = false; ///< As the bus does.
    bool diesOfPosts = false;
    Outcome outcome = Outcome::shown;
    bool holdsQuestions = false;
    bool holdsAnswers = false;
    bool losesPosts = false; ///< As if the process died just before.
    bool showing = false;
    int questions = 0;
    QStringList posted; ///< The bodies, also of what was refused.

private:
    std::function<void(Outcome)> m_answer;
    std::function<void(Presence)> m_question;
};

} // namespace tovarin
