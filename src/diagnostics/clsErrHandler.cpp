#include "diagnostics/clsErrHandler.h"

#include <utility>

#include "diagnostics/error_report.h"
#include "platform/files.h"
#include "platform/numbers.h"
#include "platform/text.h"

namespace tabulon {

namespace {

constexpr int DefaultStackItems = 100;
constexpr std::size_t LongestLoggedDescription = 255;

// The numbers by which the kinds of a value are told apart in a message, in the order of DestinationValue.
constexpr int ValueKinds[] = {0, 2, 3, 4, 5, 9, 11, 8, 9};

}  // namespace

clsErrHandler::clsErrHandler(Screen& screen, const Clock& clock, const ApplicationInfo& application,
                             const std::filesystem::path& dataDirectory)
    : m_screen(screen), m_clock(clock), m_application(application), m_dataDirectory(dataDirectory) {
    SetMaxProcStackItems(DefaultStackItems);
}

clsErrHandler::~clsErrHandler() = default;

void clsErrHandler::HandleError(const Failure& failure) {
    m_screen.SetMousePointer(MousePointer::Default);
    ErrorNumber = failure.Number();
    ErrorLine = 0;
    ErrorString = failure.Description();
    ErrorProc = CurrentProcedure();
    if (AppName.empty()) AppName = m_application.Title;
    bool cancel = false;
    if (BeforeHandlerCalled) BeforeHandlerCalled(cancel);
    if (cancel) return;
    Report();
    if (DisplayMsgOnError) Display();
    if (AfterHandlerCalled) AfterHandlerCalled();
}

// A failure while reporting is lost on purpose: the handler must never fail into the code that called it.
void clsErrHandler::Report() noexcept {
    try {
        if (const auto* name = std::get_if<std::string>(&m_destination)) {
            AppendToFile(m_dataDirectory / *name, TextReport());
            return;
        }
        const std::shared_ptr<Recordset>& table = std::get<std::shared_ptr<Recordset>>(m_destination);
        if (table) {
            AddRecord(*table);
            return;
        }
        m_screen.Beep();
        m_screen.MsgBox(
            "Error handler cannot write to the [] errors table because the Destination recordset "
            "variable has not been initialized.",
            BoxIcon::None, BoxButtons::Ok, AppName);
    } catch (...) {
    }
}

void clsErrHandler::Display() {
    m_screen.Beep();
    std::string details = "Module:  " + ErrorProc + "\r\nError:     (" + ToText(ErrorNumber) + ") " +
                          ErrorString + "\r\nLine:      " + ToText(ErrorLine);
    if (!CurrentOperation.empty()) details += "\r\nCurrent Operation: " + CurrentOperation;
    if (ShowDetails) {
        ShowDetails(details);
    } else {
        m_screen.MsgBox(details, BoxIcon::Critical, BoxButtons::Ok, AppName);
    }
}

std::string_view clsErrHandler::CurrentProcedure() const {
    const auto top = static_cast<std::size_t>(StackTop.Value());
    return top < m_procStack.size() ? m_procStack[top] : std::string_view();
}

std::string clsErrHandler::StackText() const {
    std::string text;
    for (std::size_t i = 0; i < m_procStack.size(); ++i) {
        if (m_procStack[i].empty()) continue;
        const std::string number = std::to_string(i);
        text +=
            (i < 10 ? "0" + number : number) + std::string(2 * i, ' ') + std::string(m_procStack[i]) + "\r\n";
    }
    return text;
}

std::string clsErrHandler::TextReport() const {
    ErrorReport report{m_application, m_dataDirectory, GeneralDate(m_clock.Now(), Regional)};
    report.AppName = AppName;
    report.ErrorString = Left(ErrorString, LongestLoggedDescription);
    report.ErrorNumber = ErrorNumber;
    report.ErrorLine = ErrorLine;
    report.ErrorProc = CurrentProcedure();
    report.StackText = StackText();
    report.CurrentOperation = CurrentOperation;
    return report.Text(IncludeExpandedInfo);
}

void clsErrHandler::AddRecord(Recordset& table) const {
    try {
        std::string callStack = StackText();
        if (!CurrentOperation.empty()) callStack += "\r\nCurrent Operation: " + CurrentOperation;
        table.AddNew();
        table.SetField("ErrorDate", GeneralDate(m_clock.Now(), Regional));
        table.SetField("ErrorString", Left(ErrorString, LongestLoggedDescription));
        table.SetField("ErrorNumber", ToText(ErrorNumber));
        table.SetField("ErrorLine", ToText(ErrorLine));
        table.SetField("ErrorProc", std::string(CurrentProcedure()));
        table.SetField("CallStack", callStack);
        if (IncludeExpandedInfo)
            table.SetField("AdditionalInfo", callStack + AdditionalInfo(m_application, m_dataDirectory));
        table.Update();
    } catch (const Failure&) {
        throw Failure(FailureNumber::CustomError, "Error opening recordset: ");
    }
}

bool clsErrHandler::ClearLog() {
    try {
        if (const auto* name = std::get_if<std::string>(&m_destination)) {
            std::error_code ignored;
            std::filesystem::remove(m_dataDirectory / *name, ignored);
            return true;
        }
        const std::shared_ptr<Recordset>& table = std::get<std::shared_ptr<Recordset>>(m_destination);
        if (!table || table->RecordCount() == 0) return true;
        for (table->MoveFirst(); !table->EndOfFile(); table->MoveNext()) table->Delete();
        return true;
    } catch (const Failure&) {
        return false;
    }
}

clsErrHandler::DestinationValue clsErrHandler::Destination() const {
    if (const auto* name = std::get_if<std::string>(&m_destination))
        return (m_dataDirectory / *name).string();
    return std::get<std::shared_ptr<Recordset>>(m_destination);
}

void clsErrHandler::SetDestination(DestinationValue value) {
    if (auto* name = std::get_if<std::string>(&value)) {
        m_destination = std::move(*name);
    } else if (auto* table = std::get_if<std::shared_ptr<Recordset>>(&value)) {
        m_destination = std::move(*table);
    } else {
        throw Failure(FailureNumber::CustomError,
                      "Invalid object type: " + std::to_string(ValueKinds[value.index()]));
    }
}

void clsErrHandler::SetMaxProcStackItems(Integer items) {
    m_maxItems = items.Value();
    // Index 0 is never used: the first name stands at 1.
    m_procStack.assign(static_cast<std::size_t>(std::max(m_maxItems, 0) + 1), {});
}

void clsErrHandler::SetTraceExecution(bool on) {
    m_traceExecution = on;
    if (on) OpenTrace();
}

void clsErrHandler::OpenTrace() {
    const std::filesystem::path file = m_dataDirectory / "trace.log";
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    m_trace.close();
    m_trace.clear();
    m_trace.open(file, std::ios::binary);
    if (m_trace) return;
    const Failure failure(FailureNumber::PermissionDenied);
    m_screen.MsgBox("Error: " + std::to_string(failure.Number()) + ". " + failure.Description(),
                    BoxIcon::None, BoxButtons::Ok, "TraceExecution");
}

void clsErrHandler::Trace(std::string_view ProcName) { m_trace << ProcName << "\r\n" << std::flush; }

}  // namespace tabulon
