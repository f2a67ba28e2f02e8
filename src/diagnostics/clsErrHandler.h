#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <locale>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "diagnostics/recordset.h"
#include "forms/screen.h"
#include "platform/application_info.h"
#include "platform/clock.h"
#include "platform/integer.h"
#include "platform/procedure.h"

namespace tabulon {

/// The log of failures in the data directory. It stays there until it was mailed.
inline constexpr char ErrorLog[] = "ERRORS.TXT";

/// The program's one way of failing: the stack of running procedures and the report of each failure.
class clsErrHandler final : public ProcedureStack {
  public:
    /// An object that is no recordset.
    struct OtherObject {};
    using DestinationValue = std::variant<std::monostate, Integer, std::int32_t, float, double, OtherObject,
                                          bool, std::string, std::shared_ptr<Recordset>>;

    /// All references must outlive the handler; `dataDirectory` is read at each report.
    clsErrHandler(Screen& screen, const Clock& clock, const ApplicationInfo& application,
                  const std::filesystem::path& dataDirectory);
    ~clsErrHandler() override;

    /// The stack holds MaxProcStackItems() names; the Push after that fails with SubscriptOutOfRange.
    void Push(std::string_view ProcName) override {
        StackTop += 1;
        const int top = StackTop.Value();
        if (top < 0 || top > m_maxItems) throw Failure(FailureNumber::SubscriptOutOfRange);
        m_procStack[static_cast<std::size_t>(top)] = ProcName;
        if (m_traceExecution) Trace(ProcName);
    }
    void Pop() override {
        const int top = StackTop.Value();
        if (top <= m_maxItems) m_procStack[static_cast<std::size_t>(top)] = {};
        StackTop = top > 0 ? top - 1 : 0;
    }
    /// Logs the failure, shows it, and tells the listeners. What fails while it is logged is lost.
    void HandleError(const Failure& failure) override;

    /// Empties the log; true unless a recordset refuses.
    bool ClearLog();

    /// The path of the log file, or the recordset.
    DestinationValue Destination() const;
    /// Takes a file name or a recordset; fails with CustomError for anything else and keeps what it had.
    void SetDestination(DestinationValue value);

    int MaxProcStackItems() const { return m_maxItems; }
    /// Makes the stack anew and empty; the depth stays as it was.
    void SetMaxProcStackItems(Integer items);

    bool TraceExecution() const { return m_traceExecution; }
    /// True starts a new trace.log with one line for each Push.
    void SetTraceExecution(bool on);

    bool IncludeExpandedInfo = true;
    bool DisplayMsgOnError = true;
    int ErrorNumber = 0;
    int ErrorLine = 0;
    std::string ErrorString;
    std::string ErrorProc;
    std::string AppName;
    std::string CurrentOperation;
    Integer StackTop = 0;
    /// The user's, for the date of a report.
    std::locale Regional = std::locale::classic();

    std::function<void(bool& Cancel)> BeforeHandlerCalled;
    std::function<void()> AfterHandlerCalled;
    /// Shows the details to the user; a system message box until a dialog is set.
    std::function<void(const std::string& Details)> ShowDetails;

  private:
    void Report() noexcept;
    void AddRecord(Recordset& table) const;
    void Display();
    void Trace(std::string_view ProcName);
    void OpenTrace();
    std::string TextReport() const;
    std::string StackText() const;
    std::string_view CurrentProcedure() const;

    Screen& m_screen;
    const Clock& m_clock;
    const ApplicationInfo& m_application;
    const std::filesystem::path& m_dataDirectory;
    std::variant<std::string, std::shared_ptr<Recordset>> m_destination = ErrorLog;
    int m_maxItems = 0;
    std::vector<std::string_view> m_procStack;
    bool m_traceExecution = false;
    std::ofstream m_trace;
};

}  // namespace tabulon
