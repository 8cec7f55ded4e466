// Something that happens, and who wants to know of it.
#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace dorvane {

// Handlers run in the order in which they were connected. A handler may connect further ones; these
// hear of the next event on. Whoever connects outlives the event.
template <typename... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  void Connect(Handler handler) { handlers_.push_back(std::move(handler)); }

  void Fire(Args... args) const {
    const std::size_t count = handlers_.size();
    for (std::size_t i = 0; i < count; ++i) {
      const Handler handler = handlers_[i];  // a copy: the list may grow meanwhile
      handler(args...);
    }
  }

 private:
  std::vector<Handler> handlers_;
};

}  // namespace dorvane
