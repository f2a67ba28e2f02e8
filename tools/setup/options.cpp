#include "setup/options.h"

#include <algorithm>
#include <iostream>
#include <string_view>

#include "platform/mail_text.h"

namespace tabulon {

namespace {

constexpr int WrongArguments = 2;

bool IsWebSite(const std::string& text) {
    const std::string_view rest = std::string_view(text).substr(std::min(text.find("://"), text.size()));
    const bool isWeb = text.starts_with("https://") || text.starts_with("http://");
    return isWeb && rest.size() > 3 && text.back() != '/' &&
           std::ranges::all_of(text, [](char c) { return c > ' ' && c < '\x7f' && c != '"'; });
}

bool IsServer(const std::string& text) { return IsServerName(text); }
bool IsAddress(const std::string& text) { return IsMailAddress(text); }

bool IsVerify(const std::string& text) { return text == "verify"; }

void PrintHelp(const std::vector<ProductOption>& options) {
    std::cout
        << "tabulon-setup writes down what an installation of the Tabulon Player knows: its folders, "
           "and the\n"
           "games that came with it, which it installs. Games of others are installed in the Player.\n\n"
           "  tabulon-setup [OPTIONS]\n"
           "  tabulon-setup --help | --version\n\n";
    for (const ProductOption& option : options) {
        const std::string usage = std::string(option.Option) + " " + option.Value;
        std::cout << "  " << usage << std::string(usage.size() < 28 ? 28 - usage.size() : 1, ' ')
                  << option.Meaning << '\n';
    }
    std::cout << "\nA value may also follow its option behind an equals sign: --mail-tls=verify.\n"
                 "An option with an empty value goes back to what the Player was built with.\n"
                 "Exit status: 0 done, 1 something could not be written or installed, 2 wrong arguments.\n";
}

int Refuse(const std::string& message) {
    std::cerr << "tabulon-setup: " << message << "; see tabulon-setup --help\n";
    return WrongArguments;
}

}  // namespace

std::vector<ProductOption> ProductOptions() {
    return {
        {"--web-site", "URL", "the makers' web site, without a slash at its end", "WebSite", IsWebSite, {}},
        {"--mail-server", "HOST[:PORT]", "takes the error logs that users send", "MailServer", IsServer, {}},
        {"--support-address", "ADDRESS", "receives them", "SupportAddress", IsAddress, {}},
        {"--mail-tls",
         "verify",
         "they go to no server without a signed certificate",
         "MailTls",
         IsVerify,
         {}}};
}

int ReadCommandLine(int argc, char** argv, std::vector<ProductOption>& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--help") return PrintHelp(options), EndsWell;
        if (argument == "--version") return std::cout << "tabulon-setup " TABULON_VERSION "\n", EndsWell;
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const auto option =
            std::ranges::find_if(options, [&](const ProductOption& each) { return name == each.Option; });
        if (option == options.end()) return Refuse("there is no option \"" + name + "\"");
        if (equals == argument.npos && ++i == argc) return Refuse(name + " needs a value: " + option->Value);
        option->Given = equals == argument.npos ? argv[i] : argument.substr(equals + 1);
        if (!option->Given->empty() && !option->IsUsable(*option->Given))
            return Refuse("\"" + *option->Given + "\" is no value for " + name + " " + option->Value);
    }
    return 0;
}

}  // namespace tabulon
