#include "platform/application_info.h"

namespace tabulon {

std::string BuiltInWebSite() { return TABULON_WEB_SITE; }

std::string BuiltInMailServer() { return TABULON_MAIL_SERVER; }

std::string BuiltInSupportAddress() { return TABULON_SUPPORT_ADDRESS; }

}  // namespace tabulon
