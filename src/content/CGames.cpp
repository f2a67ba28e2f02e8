#include "content/CGames.h"

#include <memory>

namespace tabulon {

CGame& CGames::Add(const std::string& Splash, const std::string& BoardImage, bool LoopBoard,
                   Integer FinishCondition, Integer GoalType, const std::string& GameDirectory,
                   const std::string& UpperAgeRange, const std::string& LowerAgeRange,
                   const std::string& GameName, const std::string& Author, const std::string& Description,
                   const std::string& Key) {
    auto game = std::make_unique<CGame>(m_g, m_packages);
    game->Splash = Splash;
    game->BoardImage = BoardImage;
    game->LoopBoard = LoopBoard;
    game->FinishCondition = FinishCondition.Value();
    game->GoalType = GoalType;
    game->GameDirectory = GameDirectory;
    game->SetUpperAgeRange(UpperAgeRange);
    game->SetLowerAgeRange(LowerAgeRange);
    game->GameName = GameName;
    game->Author = Author;
    game->Description = Description;
    return Collection::Add(std::move(game), Key);
}

}  // namespace tabulon
