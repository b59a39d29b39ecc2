#pragma once

// Measurements in fresh processes, as a user's program would run them: the child is forked after
// the inputs were read into memory, measures, and sends its result back through a pipe.

#include <QxXmlLib16/foundation/Exceptions.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace bench {

// Runs measure() in a forked child and stores what it returns in result. False when the child
// failed (a message is printed) or its result did not arrive.
template <class Result, class Measure>
bool InFreshProcess(Measure measure, Result& result) {
    static_assert(std::is_trivially_copyable<Result>::value, "the result travels as bytes");
    int channel[2];
    if (pipe(channel) != 0) return false;
    const pid_t child = fork();
    if (child == 0) {
        close(channel[0]);
        bool sent = false;
        try {
            const Result measured = measure();
            sent = write(channel[1], &measured, sizeof measured) == sizeof measured;
        } catch (const std::exception& e) {
            std::fprintf(stderr, "  failed: %s\n", e.what());
        } catch (...) {
            std::fprintf(stderr, "  failed\n");
        }
        _exit(sent ? 0 : 1);
    }
    close(channel[1]);
    const bool received = child > 0 && read(channel[0], &result, sizeof result) == sizeof result;
    close(channel[0]);
    if (child > 0) waitpid(child, nullptr, 0);
    return received;
}

// One figure of a fresh process: the seconds a phase took, and the bytes it read or wrote.
struct Sample {
    double seconds;
    unsigned long bytes;
};

// The median over runs fresh processes of what measure times; exits when a run fails, with the
// library's message.
inline Sample Median(int runs, const std::function<Sample()>& measure) {
    const auto reporting = [&] {
        try {
            return measure();
        } catch (const QxXmlLib16::CQxException& e) {
            const std::wstring message = e.GetFullMessage();
            throw std::runtime_error(std::string(message.begin(), message.end()));
        }
    };
    std::vector<Sample> samples(static_cast<size_t>(runs));
    for (Sample& sample : samples)
        if (!InFreshProcess(reporting, sample)) std::exit(1);
    std::sort(samples.begin(), samples.end(),
              [](const Sample& a, const Sample& b) { return a.seconds < b.seconds; });
    return samples[samples.size() / 2];
}

} // namespace bench
