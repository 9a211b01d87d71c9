// Waiting for several descriptors at once, so that one wait serves what all the others wait for.
// SPDX-License-Identifier: MIT
#include <map>
#include <memory>
#include <sys/epoll.h>
#include <utility>

#include <platform/io/Descriptor.h>
#include <platform/ipc/Waiting.h>

namespace orvo {
namespace {

struct Sources {
    Descriptor descriptor{::epoll_create1(EPOLL_CLOEXEC)};
    std::map<int, std::shared_ptr<const std::function<void()>>> serve;

    static Sources& Get() {
        static Sources sources;
        return sources;
    }
};

}  // namespace

WaitSource::WaitSource(int descriptor, std::function<void()> serve) : m_descriptor(descriptor) {
    Sources& sources = Sources::Get();
    sources.serve[descriptor] = std::make_shared<const std::function<void()>>(std::move(serve));
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = descriptor;
    ::epoll_ctl(sources.descriptor.Number(), EPOLL_CTL_ADD, descriptor, &event);
}

WaitSource::~WaitSource() {
    Sources& sources = Sources::Get();
    ::epoll_ctl(sources.descriptor.Number(), EPOLL_CTL_DEL, m_descriptor, nullptr);
    sources.serve.erase(m_descriptor);
}

int WaitDescriptor() {
    return Sources::Get().descriptor.Number();
}

bool ServeSources(int milliseconds) {
    Sources& sources = Sources::Get();
    epoll_event event{};
    // One at a time: the function of one may end the others.
    if (::epoll_wait(sources.descriptor.Number(), &event, 1, milliseconds) != 1) return false;
    const auto found = sources.serve.find(event.data.fd);
    if (found == sources.serve.end()) return false;
    const auto serve = found->second;
    (*serve)();
    return true;
}

}  // namespace orvo
