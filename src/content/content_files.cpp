#include "content/content_files.h"

#include "content/persisted_recordset.h"
#include "platform/files.h"

namespace tabulon {

PersistedRecordset OpenRecordset(const std::filesystem::path& file) {
    return PersistedRecordset(ReadFile(file, limits::ContentFileBytes));
}

void ShowGameDirectoryMissing(Globals& g) {
    g.TheScreen.MsgBox("A Game Directory has not been assigned.", BoxIcon::Critical, BoxButtons::Ok,
                       g.Application.Title);
}

}  // namespace tabulon
