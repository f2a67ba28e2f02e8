#include "setup/options.h"

#include <CLI/CLI.hpp>
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

void Take(ProductOption& option, const std::string& text) {
    if (!text.empty() && !option.IsUsable(text))
        throw CLI::ValidationError("\"" + text + "\" is no value for " + option.Option + " " + option.Value);
    option.Given = text;
}

/// From the last to the first. The library takes "--name=" for an option without a value, so the empty value
/// gets a place of its own.
std::vector<std::string> ArgumentsBackward(int argc, char** argv) {
    std::vector<std::string> backward;
    for (int i = argc - 1; i > 0; --i) {
        std::string argument = argv[i];
        if (argument.starts_with("--") && argument.find('=') == argument.size() - 1) {
            argument.pop_back();
            backward.emplace_back();
        }
        backward.push_back(argument);
    }
    return backward;
}

void AddOptions(CLI::App& app, std::vector<ProductOption>& options) {
    app.option_defaults()->take_last();
    app.set_help_flag("--help", "print this");
    app.set_version_flag("--version", "tabulon-setup " TABULON_VERSION)->description("print the version");
    for (ProductOption& option : options)
        app.add_option_function<std::string>(
               option.Option, [&option](const std::string& text) { Take(option, text); }, option.Meaning)
            ->type_name(option.Value);
    app.footer(
        "A value may also follow its option behind an equals sign: --mail-tls=verify.\n"
        "An option with an empty value goes back to what the Player was built with.\n"
        "Exit status: 0 done, 1 something could not be written or installed, 2 wrong arguments.");
}

std::string WhatIsWrong(const CLI::ParseError& error, const CLI::App& app) {
    const std::string text = error.what();
    if (dynamic_cast<const CLI::ExtrasError*>(&error))
        return "there is no option \"" + app.remaining().front() + "\"";
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        return text.substr(0, text.find(':')) + " needs a value";
    return text;
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
    CLI::App app(
        "Writes down what an installation of the Tabulon Player knows: its folders, and the games that came\n"
        "with it, which it installs. Games of others are installed in the Player.",
        "tabulon-setup");
    AddOptions(app, options);
    try {
        app.parse(ArgumentsBackward(argc, argv));
        return 0;
    } catch (const CLI::Success& asked) {
        app.exit(asked);
        return EndsWell;
    } catch (const CLI::ParseError& error) {
        std::cerr << "tabulon-setup: " << WhatIsWrong(error, app) << "; see tabulon-setup --help\n";
        return WrongArguments;
    }
}

}  // namespace tabulon
