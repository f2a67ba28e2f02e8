#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tabulon {

/// A setting of the product that an installation may give, and what was given for it.
struct ProductOption {
    const char* Option;
    const char* Value;  // what the help calls it
    const char* Meaning;
    const char* Name;  // in the settings
    bool (*IsUsable)(const std::string& text);
    std::optional<std::string> Given;  // an empty text goes back to what the Player was built with
};

std::vector<ProductOption> ProductOptions();

/// Fills in what the command line gives. Anything but 0 is the exit status to end with at once, after the
/// help, the version or a message was printed; EndsWell stands for status 0.
inline constexpr int EndsWell = -1;
int ReadCommandLine(int argc, char** argv, std::vector<ProductOption>& options);

}  // namespace tabulon
