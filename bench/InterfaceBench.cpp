// A call of an interface in another process; beside a synchronous call of the bus library alone.
// With `million` as first argument each is made a million times. Run it in a session of its own:
// dbus-run-session InterfaceBench
// SPDX-License-Identifier: MIT
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sdbus-c++/sdbus-c++.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include <platform/com/Counter.h>
#include <platform/com/Marshal.h>
#include <platform/ipc/Waiting.h>

namespace orvo::bench {
namespace {

constexpr char kPeerName[] = "orvo.bench.Peer";
constexpr char kPeerPath[] = "/orvo/bench";
constexpr int kPacketSize = 544;

// The lines between this process and those that it calls, two ends each.
struct Line {
    int packet[2];
    int ready[2];
    int end[2];
};

ComPointer<IStream> NewStream(HGLOBAL block) {
    IStream* stream = nullptr;
    if (CreateStreamOnHGlobal(block, 1, &stream) != S_OK) std::abort();
    return ComPointer(stream);
}

// What the other process exports, until its line ends.
int ServeInterface(const Line& line) {
    RegisterCounter();
    if (CoInitialize(nullptr) != S_OK) return 1;
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, kPacketSize);
    {
        const ComPointer<IStream> stream = NewStream(block);
        const ComPointer<ICounter> counter(new Counter);
        if (CoMarshalInterface(stream.Get(), IID_ICounter, counter.Get(), MSHCTX_LOCAL, nullptr,
                               MSHLFLAGS_NORMAL) != S_OK) {
            return 1;
        }
        if (::write(line.packet[1], GlobalLock(block), kPacketSize) != kPacketSize) return 1;
        GlobalUnlock(block);
    }
    bool isOver = false;
    {
        const WaitSource end(line.end[0], [&isOver] { isOver = true; });
        while (!isOver) ServeSources(-1);
    }
    while (ServeSources(100)) {
    }
    std::printf("left in the other process: %d objects, %zu exports\n", Counter::Living(),
                ExportedInterfaceCount());
    return 0;
}

int ServePeer(const Line& line) {
    const auto connection = sdbus::createSessionBusConnection(kPeerName);
    const auto object = sdbus::createObject(*connection, kPeerPath);
    std::int64_t total = 0;
    object->registerMethod("Add").onInterface(kPeerName).implementedAs(
        [&total](std::int64_t number) { return total += number; });
    object->finishRegistration();
    if (::write(line.ready[1], ".", 1) != 1) return 1;
    connection->enterEventLoop();
    return 0;
}

ComPointer<ICounter> ReadInterface(const Line& line) {
    RegisterCounter();
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, kPacketSize);
    const ComPointer<IStream> stream = NewStream(block);
    void* object = nullptr;
    if (CoInitialize(nullptr) != S_OK ||
        ::read(line.packet[0], GlobalLock(block), kPacketSize) != kPacketSize ||
        GlobalUnlock(block) != 0 ||
        CoUnmarshalInterface(stream.Get(), IID_ICounter, &object) != S_OK) {
        std::fputs("no interface of the other process: is there a session bus?\n", stderr);
        std::exit(1);
    }
    return ComPointer(static_cast<ICounter*>(object));
}

void CallInterface(benchmark::State& state, ICounter& counter) {
    std::int64_t total = 0;
    for (auto step : state) {
        static_cast<void>(step);
        if (counter.Add(1, total) != S_OK) state.SkipWithError("the call failed");
    }
}

void CallPeer(benchmark::State& state, sdbus::IProxy& peer) {
    std::int64_t total = 0;
    for (auto step : state) {
        static_cast<void>(step);
        peer.callMethod("Add")
            .onInterface(kPeerName)
            .withArguments(std::int64_t{1})
            .storeResultsTo(total);
    }
}

int Run(int count, char** arguments) {
    Line line{};
    if (::pipe(line.packet) != 0 || ::pipe(line.ready) != 0 || ::pipe(line.end) != 0) return 1;
    const pid_t exporter = ::fork();
    if (exporter == 0) {
        ::close(line.end[1]);
        return ServeInterface(line);
    }
    const pid_t peerProcess = ::fork();
    if (peerProcess == 0) {
        ::close(line.end[1]);
        return ServePeer(line);
    }

    ComPointer<ICounter> counter = ReadInterface(line);
    char ready = 0;
    if (::read(line.ready[0], &ready, 1) != 1) return 1;
    const auto peer = sdbus::createProxy(sdbus::createSessionBusConnection(), kPeerName, kPeerPath);
    auto* ours = benchmark::RegisterBenchmark(
        "CallInterface", [&](benchmark::State& state) { CallInterface(state, *counter.Get()); });
    auto* theirs = benchmark::RegisterBenchmark(
        "CallBusLibrary", [&](benchmark::State& state) { CallPeer(state, *peer); });
    for (auto* each : {ours, theirs}) {
        each->UseRealTime()->Unit(benchmark::kMicrosecond);
        if (count > 1 && std::string_view(arguments[1]) == "million") each->Iterations(1'000'000);
    }
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();

    counter = {};
    CoUninitialize();
    ::close(line.end[1]);
    ::waitpid(exporter, nullptr, 0);
    ::kill(peerProcess, SIGTERM);
    ::waitpid(peerProcess, nullptr, 0);
    return 0;
}

}  // namespace
}  // namespace orvo::bench

int main(int count, char** arguments) {
    return orvo::bench::Run(count, arguments);
}
