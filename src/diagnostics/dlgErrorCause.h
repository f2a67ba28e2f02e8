#pragma once

#include <string>

#include "diagnostics/globals.h"

namespace tabulon {

/// Asks what the user did before an error.
class DlgErrorCause : public Form {
  public:
    explicit DlgErrorCause(Globals& g);

    /// Begins with Steps. Ok is True and Steps the answer, unless the user cancelled. Leaves the hourglass
    /// on: the caller is busy.
    void GetData(std::string& Steps, bool& Ok);

    Label Label1{*this, "Label1"};
    TextBox txtSteps{*this, "txtSteps"};
    Button cmdOk{*this, "cmdOk"};
    Button cmdCancel{*this, "cmdCancel"};

  protected:
    void Design() override;

  private:
    void cmdOk_Click();
    void cmdCancel_Click();

    Globals& m_g;
    bool m_cancelled = false;
};

}  // namespace tabulon
