// The stick person's calls that are still to be spoken.
#pragma once

#include <deque>
#include <filesystem>
#include <utility>

namespace rollwick {

// A stick person who falls behind leaves out the oldest calls.
class WaitingCalls {
 public:
  static constexpr std::size_t kMost = 3;

  void Add(std::filesystem::path call) {
    if (calls_.size() == kMost) calls_.pop_front();
    calls_.push_back(std::move(call));
  }
  bool IsEmpty() const { return calls_.empty(); }
  // The oldest one; there must be one.
  std::filesystem::path Take() {
    std::filesystem::path call = std::move(calls_.front());
    calls_.pop_front();
    return call;
  }
  void Clear() { calls_.clear(); }

 private:
  std::deque<std::filesystem::path> calls_;
};

}  // namespace rollwick
