#include "platform/message_box.h"

namespace lumacfg::platform {

MessageAnswer DefaultAnswer(const MessageRequest& request) {
    switch (request.buttons) {
        case MessageButtons::Ok:
            return MessageAnswer::Ok;
        case MessageButtons::OkCancel:
            return request.defaultButton == 1 ? MessageAnswer::Cancel : MessageAnswer::Ok;
        case MessageButtons::YesNo:
        case MessageButtons::YesNoCancel:
            return request.defaultButton == 0   ? MessageAnswer::Yes
                   : request.defaultButton == 1 ? MessageAnswer::No
                                                : MessageAnswer::Cancel;
    }
    return MessageAnswer::Ok;
}

}  // namespace lumacfg::platform
