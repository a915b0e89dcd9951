// Message boxes answered from a queue the test fills (Yes, No, ...); every message is recorded.
// An empty queue answers OK.
#pragma once

#include <deque>
#include <vector>

#include "platform/message_box.h"

namespace lumacfg::support {

class AnsweringMessages final : public platform::MessageBoxService {
  public:
    AnsweringMessages(std::vector<platform::MessageRequest>* shown,
                      std::deque<platform::MessageAnswer>* answers)
        : shown_(shown), answers_(answers) {}

    platform::MessageAnswer Show(const platform::MessageRequest& request) override {
        shown_->push_back(request);
        if (answers_->empty()) return platform::MessageAnswer::Ok;
        const platform::MessageAnswer answer = answers_->front();
        answers_->pop_front();
        return answer;
    }

  private:
    std::vector<platform::MessageRequest>* shown_;
    std::deque<platform::MessageAnswer>* answers_;
};

}  // namespace lumacfg::support
