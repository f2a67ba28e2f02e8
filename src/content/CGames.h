#pragma once

#include <string>

#include "content/CGame.h"
#include "content/collection.h"

namespace tabulon {

/// A list of game definitions.
class CGames : private Collection<CGame> {
  public:
    CGames(Globals& g, modInstallUninstall& packages) : m_g(g), m_packages(packages) {}

    /// Adds a game with these settings; nothing is loaded. Fails, and adds nothing, for an age that is no
    /// number.
    CGame& Add(const std::string& Splash, const std::string& BoardImage, bool LoopBoard,
               Integer FinishCondition, Integer GoalType, const std::string& GameDirectory,
               const std::string& UpperAgeRange, const std::string& LowerAgeRange,
               const std::string& GameName, const std::string& Author, const std::string& Description,
               const std::string& Key);

    using Collection::begin;
    using Collection::Count;
    using Collection::end;
    using Collection::Item;
    using Collection::Remove;

  private:
    Globals& m_g;
    modInstallUninstall& m_packages;
};

}  // namespace tabulon
