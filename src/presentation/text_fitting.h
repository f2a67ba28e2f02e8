#pragma once

#include <string>
#include <string_view>

#include "diagnostics/globals.h"

namespace tabulon {

/// Gives the controls of a form the game's font. Labels keep their size and then shrink until their text
/// fits; on "frmSplash" lists, inputs and buttons keep their size too.
void SetFormObjectFonts(Globals& g, Form& form, const std::string& fontName, Integer fontSize);

/// Lowers the label's font size, never raises it, until its wrapped text is no higher than the label. Fails
/// when it does not fit at 1 point either.
void FitLabelText(Globals& g, Label& label);

/// The height of the sample text "Gg", in twips.
Integer TextHeight(Globals& g, const std::string& fontName, int fontSize);

bool IsFormLoaded(Globals& g, std::string_view formName);

/// Selects the first row that is exactly equal; without one the selection stays.
void SelectItemInDropDownList(Globals& g, ComboBox& list, std::string_view item);

/// What stands before the amount on a player's plate.
std::string_view ScoreCaption(Integer goalType);

}  // namespace tabulon
