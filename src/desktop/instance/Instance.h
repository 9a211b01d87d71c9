// One program a store: a later start hands what it was asked for to the one that runs.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace orvo::desktop {

// What a start was asked for.
struct StartRequest {
    std::vector<std::string> files;  // relative to the present folder where they aren't absolute
    std::string action;              // a view's name on the command line; empty for none
    std::string token;               // the desktop's leave to come to the front; may be empty
};

// The one that runs doesn't take the request; what() is one line.
class InstanceError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The name on the session bus of whoever shows that store: org.orvoshare.OrvoDesktop for the user's
// own, which an empty path stands for too; others have a name of their own, whichever way the path
// is written.
std::string InstanceName(const std::string& store);

// The place on the session bus, from the claim to the end. There it answers to
// org.freedesktop.Application. Without a session bus every start is the first.
class Instance {
public:
    // Returns:  the place; null where a program had it already, which has taken the request then.
    // Fails:    InstanceError where that program doesn't answer within three seconds.
    static std::unique_ptr<Instance> Claim(const std::string& name, const StartRequest& request);

    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;
    ~Instance();

    // From now on requests of later starts are passed on, from Qt's event loop; their files are
    // absolute. Those that came earlier come now. The application outlives the instance.
    void SetListener(std::function<void(const StartRequest&)> listener);

private:
    class Place;

    explicit Instance(std::unique_ptr<Place> place);

    std::unique_ptr<Place> m_place;  // null without a session bus
};

}  // namespace orvo::desktop
