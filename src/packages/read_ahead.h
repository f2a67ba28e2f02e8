#pragma once

#include <cstddef>
#include <functional>
#include <future>
#include <semaphore>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace tabulon {

/// Unpacks the entries of an archive one after the other, by a thread that keeps a little ahead of who takes
/// them.
class ReadAhead {
  public:
    /// Gives up, by any failure, when it is asked to stop.
    using Unpacker = std::function<std::string(std::size_t, const std::stop_token&)>;

    /// From `first` to before `end`. Until the end of this object only its thread calls the unpacker. Fails
    /// with std::system_error where no thread is to be had.
    ReadAhead(std::size_t first, std::size_t end, const Unpacker& unpacker);
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// The next entry, as soon as it is there; not to be called after the last one. Fails as the unpacker
    /// failed.
    std::string Take();

  private:
    // A thread that has to be woken for each entry costs more than it saves.
    static constexpr std::ptrdiff_t Ahead = 8;

    std::vector<std::packaged_task<std::string(const std::stop_token&)>> m_entries;
    std::size_t m_taken = 0;
    std::counting_semaphore<> m_room{Ahead};
    std::jthread m_thread;  // the last member, because its end is waited for
};

}  // namespace tabulon
