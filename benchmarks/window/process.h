#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// Parts of the benchmark that need a process of their own.
namespace measure {

/// Starts this program with other arguments; its output goes where ours does.
class Child {
  public:
    explicit Child(const std::vector<std::string>& arguments);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Until it has ended by itself; std::runtime_error when it does not, or says that it failed.
    void wait();

  private:
    void* process_ = nullptr;
};

/// Something that one process tells another: it has happened.
class Signal {
  public:
    explicit Signal(const std::string& name);
    ~Signal();
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    void give();
    void await();  ///< std::runtime_error when it does not come

  private:
    void* event_ = nullptr;
};

/// Physical memory of this process in MB, as the system counts it: now, and at most so far.
double memoryNow();
double memoryPeak();

}  // namespace measure
