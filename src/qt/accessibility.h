#pragma once

namespace tabulon {

/// Tells a screen reader what the program's own widgets are: dialogs, pictures.
void InstallAccessibleRoles();

}  // namespace tabulon
