// Leaving in good order when the system asks for it.
#pragma once

#include <functional>
#include <memory>
#include <span>

class QSocketNotifier;

// While it lives, the first `patience` signals out of a set are told on the user-interface thread, where it is made;
// one more ends the process as usual. A signal that the process was started to ignore stays ignored.
class TerminationSignals
{
public:
    // `told` gets the number of the first signal, and how many have come: 1, then 2, up to `patience`.
    using Told = std::function<void(int signal, int count)>;

    TerminationSignals(std::span<const int> numbers, int patience, Told told);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    void TellNew();

    const std::span<const int> m_numbers;
    const Told m_told;
    int m_nTold = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
