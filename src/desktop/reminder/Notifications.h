// Messages that the desktop shows beside all windows, and what the user answers.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <desktop/reminder/Note.h>
#include <desktop/reminder/SessionBus.h>

namespace orvo::desktop {

// By the notification service of the session bus.
class Notifications {
public:
    // `token` is the desktop's leave to come to the front; mostly empty.
    using Answered = std::function<void(const std::string& answer, const std::string& token)>;
    using Unserved = std::function<void(const Note&)>;

    // `answered` is called once for each note that the user answers or closes. `unserved` takes
    // those for which there is no service.
    Notifications(Answered answered, Unserved unserved);
    ~Notifications();
    Notifications(const Notifications&) = delete;
    Notifications& operator=(const Notifications&) = delete;

    // Doesn't wait.
    void Show(const Note& note);

    // From now on answers count, too, to notes that another program of ours has shown.
    void TakeAll(bool isTaken) { m_takesAll = isTaken; }

    // Closes what is shown still: nobody is there any more to take answers.
    void CloseAll();

private:
    void Listen();
    void Send(const Note& note);
    void TakeAction(std::uint32_t id, const std::string& action);
    void Pass(const std::string& answer, const std::string& token);
    void Deliver();
    void Close(std::uint32_t id);

    Answered m_answered;
    Unserved m_unserved;
    std::unique_ptr<SessionBus> m_bus;
    std::unique_ptr<sdbus::IProxy> m_service;
    std::map<std::uint32_t, Note> m_shown;
    std::string m_token;  // for the action that follows
    // What is to be done while nothing is read from the bus, as it may ask the user.
    std::vector<std::pair<std::string, std::string>> m_answers;
    std::vector<Note> m_unservedNotes;
    QTimer m_later;  // runs while there is any of it
    bool m_takesAll = false;
};

}  // namespace orvo::desktop
