#include "setup/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tabulon {
namespace {

using testing::HasSubstr;
using testing::internal::CaptureStderr;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStderr;
using testing::internal::GetCapturedStdout;

constexpr int WrongArguments = 2;

struct Reading {
    std::vector<ProductOption> options = ProductOptions();
    int status = 0;

    explicit Reading(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "tabulon-setup");
        std::vector<char*> raw;
        for (std::string& argument : arguments) raw.push_back(argument.data());
        status = ReadCommandLine(static_cast<int>(raw.size()), raw.data(), options);
    }
    std::optional<std::string> Given(const std::string& name) const {
        for (const ProductOption& option : options)
            if (option.Name == name) return option.Given;
        return "no such setting";
    }
};

TEST(SetupOptions, WhatIsNotGivenStaysAsItIs) {
    const Reading reading({});
    EXPECT_EQ(reading.status, 0);
    for (const ProductOption& option : reading.options) EXPECT_FALSE(option.Given) << option.Name;
}

TEST(SetupOptions, EachGoesToItsSetting) {
    const Reading reading({"--support-address", "help@corvane.example", "--web-site",
                           "https://games.example/play", "--mail-server", "mail.example:2525",
                           "--mail-tls=verify"});
    EXPECT_EQ(reading.status, 0);
    EXPECT_EQ(reading.Given("SupportAddress"), "help@corvane.example");
    EXPECT_EQ(reading.Given("WebSite"), "https://games.example/play");
    EXPECT_EQ(reading.Given("MailServer"), "mail.example:2525");
    EXPECT_EQ(reading.Given("MailTls"), "verify");
}

TEST(SetupOptions, AValueMayStandBehindAnEqualsSign) {
    const Reading reading({"--web-site=https://games.example/?a=", "--mail-server="});
    EXPECT_EQ(reading.Given("WebSite"), "https://games.example/?a=");
    EXPECT_EQ(reading.Given("MailServer"), "");
}

TEST(SetupOptions, AnEmptyValueGoesBackToWhatWasBuiltIn) {
    const Reading reading({"--mail-server", ""});
    EXPECT_EQ(reading.status, 0);
    EXPECT_EQ(reading.Given("MailServer"), "");
}

struct WrongCase {
    const char* name;
    std::vector<std::string> arguments;
    const char* message;
};

class WrongOptions : public testing::TestWithParam<WrongCase> {};

TEST_P(WrongOptions, AreRefusedWithWhatIsWrong) {
    CaptureStderr();
    const Reading reading(GetParam().arguments);
    EXPECT_THAT(GetCapturedStderr(), HasSubstr(GetParam().message));
    EXPECT_EQ(reading.status, WrongArguments);
}

const WrongCase wrongCases[] = {
    {"Unknown", {"--wibsite", "x"}, "no option \"--wibsite\""},
    {"Stray", {"--mail-tls=verify", "x"}, "no option \"x\""},
    {"NoValue", {"--mail-server"}, "--mail-server needs a value"},
    {"OtherTls", {"--mail-tls=never"}, "no value for --mail-tls"},
    {"SiteWithoutScheme", {"--web-site", "www.games.example"}, "no value for --web-site"},
    {"SiteOfAnotherScheme", {"--web-site", "file:///etc/passwd"}, "no value for --web-site"},
    {"SiteWithoutHost", {"--web-site", "https://"}, "no value for --web-site"},
    {"SiteWithSlash", {"--web-site", "https://games.example/"}, "no value for --web-site"},
    {"ServerWithBlank", {"--mail-server", "mail example"}, "no value for --mail-server"},
    {"AddressWithLineEnd",
     {"--support-address", "a@b.example\nBcc: c@d.example"},
     "no value for --support-address"},
};

INSTANTIATE_TEST_SUITE_P(All, WrongOptions, testing::ValuesIn(wrongCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SetupOptions, HelpAndVersionEndWell) {
    for (const char* argument : {"--help", "--version"}) {
        CaptureStdout();
        EXPECT_EQ(Reading({argument}).status, EndsWell);
        EXPECT_THAT(GetCapturedStdout(), HasSubstr("tabulon-setup")) << argument;
    }
}

}  // namespace
}  // namespace tabulon
