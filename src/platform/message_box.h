// Modal message boxes: one service so every rule that shows a message can be tested with a
// recorder that answers as the test says.
#pragma once

#include <string>

namespace lumacfg::platform {

enum class MessageIcon { None, Critical, Question, Exclamation, Information };
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class MessageAnswer { Ok, Cancel, Yes, No };

struct MessageRequest {
    std::string text;
    std::string title;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
    int defaultButton = 0;  // 0-based among the buttons
};

// The answer of the default button, as a user pressing Enter gives it.
MessageAnswer DefaultAnswer(const MessageRequest& request);

class MessageBoxService {
  public:
    virtual ~MessageBoxService() = default;
    virtual MessageAnswer Show(const MessageRequest& request) = 0;
};

}  // namespace lumacfg::platform
