// The logon through PAM, service "lumacfg": the conversation answers the password prompt with
// the password and the name prompt with the user name; authentication, then the account check
// (an expired or locked account is refused like a wrong password).
#include <grp.h>
#include <pwd.h>
#include <security/pam_appl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "platform/logon.h"
#include "platform/posix/backends.h"
#include "platform/services.h"

namespace lumacfg::platform {
namespace {

constexpr const char* kService = "lumacfg";

struct Conversation {
    const std::string* user;
    const std::string* password;
};

// PAM frees every answer and the array itself; an answer the program does not have is empty.
int Converse(int count, const pam_message** messages, pam_response** responses, void* data) {
    const auto* conversation = static_cast<const Conversation*>(data);
    auto* answers = static_cast<pam_response*>(std::calloc(count, sizeof(pam_response)));
    if (answers == nullptr) return PAM_BUF_ERR;
    for (int i = 0; i < count; ++i) {
        const int style = messages[i]->msg_style;
        if (style == PAM_PROMPT_ECHO_OFF) {
            answers[i].resp = ::strdup(conversation->password->c_str());
        } else if (style == PAM_PROMPT_ECHO_ON) {
            answers[i].resp = ::strdup(conversation->user->c_str());
        }
    }
    *responses = answers;
    return PAM_SUCCESS;
}

class PamAuthenticator final : public Authenticator {
  public:
    Authentication Authenticate(const std::string& user, const std::string& password) override {
        Conversation conversation{&user, &password};
        const pam_conv conv{Converse, &conversation};
        pam_handle_t* handle = nullptr;
        int status = ::pam_start(kService, user.c_str(), &conv, &handle);
        if (status == PAM_SUCCESS) status = ::pam_authenticate(handle, 0);
        if (status == PAM_SUCCESS) status = ::pam_acct_mgmt(handle, 0);
        Authentication answer{.accepted = status == PAM_SUCCESS, .user = user, .reason = {}};
        if (handle == nullptr) {
            answer.reason = "the logon service cannot be started";
            return answer;
        }
        const void* name = nullptr;
        if (answer.accepted && ::pam_get_item(handle, PAM_USER, &name) == PAM_SUCCESS && name) {
            answer.user = static_cast<const char*>(name);
        }
        if (!answer.accepted) answer.reason = ::pam_strerror(handle, status);
        ::pam_end(handle, status);
        return answer;
    }
};

}  // namespace

std::unique_ptr<Authenticator> MakeAuthenticator() {
    return std::make_unique<PamAuthenticator>();
}

std::string DesktopUser() {
    if (const passwd* user = ::getpwuid(::getuid())) return user->pw_name;
    return std::to_string(::getuid());
}

std::string PrimaryGroupOf(std::string_view user) {
    const std::string name(user);
    const passwd* account = ::getpwnam(name.c_str());
    if (account == nullptr) return {};
    if (const group* primary = ::getgrgid(account->pw_gid)) return primary->gr_name;
    return std::to_string(account->pw_gid);
}

void LeaveLoggedOnGroup(std::string_view group) {
    Profiles().WriteString(JoinPath(ProgramDirectory(), "lumagen.ist"), "WSX,1", "GroupName",
                           group);
}

bool SessionLogonChosen() {
    const char* chosen = std::getenv("LUMACFG_LOGON");
    return chosen != nullptr && std::string_view(chosen) == "session";
}

}  // namespace lumacfg::platform
