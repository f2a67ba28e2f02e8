#include "info/modEnumResources.h"

#include "platform/files.h"
#include "platform/text.h"

namespace tabulon {

namespace {

constexpr int FirstNumber = 101;
constexpr std::size_t LargestLibrary = 1u << 20;

struct ResourceType {
    int Number;
    std::string_view Name;
};

constexpr ResourceType ResourceTypes[] = {
    {1, "Hardware-dependent cursor resource"},
    {2, "Bitmap resource"},
    {3, "Hardware-dependent icon resource"},
    {4, "Menu resource"},
    {5, "Dialog box"},
    {6, "String-table entry"},
    {7, "Font directory resource"},
    {8, "Font resource"},
    {9, "Accelerator table"},
    {10, "Application-defined resource (raw data)"},
    {11, "Message-table entry"},
    {12, "Hardware-independent cursor resource"},
    {14, "Hardware-independent icon resource"},
    {16, "Version resource"},
    {17, "Header file that contains menu and dialog box #define statements"},
    {19, "Plug and play resource"},
    {20, "VXD"},
    {21, "Animated cursor"},
    {22, "Animated icon"},
    {23, "HTML document"},
};

}  // namespace

ResourceModule LoadResourceModule(const std::string& File) {
    try {
        const std::string bytes = ReadFile(File, LargestLibrary);
        return std::make_shared<const ResourceLibrary>(ResourceLibrary{File, Lines(ToUtf8(bytes))});
    } catch (const Failure&) {
        return nullptr;
    }
}

std::string LoadResourceString(const ResourceModule& Module, int Number) {
    const std::int64_t index = std::int64_t{Number} - FirstNumber;
    if (!Module || index < 0 || index >= static_cast<std::int64_t>(Module->Texts.size())) return {};
    return Module->Texts[static_cast<std::size_t>(index)];
}

std::string_view ResourceTypeName(int Number) {
    for (const ResourceType& type : ResourceTypes)
        if (type.Number == Number) return type.Name;
    return "User-defined custom resource";
}

bool modEnumResources::EnumerateResources(IEnumResources& Sink, const std::string& ModuleFile) {
    bool Result = false;
    const auto forget = [this] { m_sink = nullptr; };
    Procedure(
        m_g.gErrHandler, "modEnumResources:EnumerateResources",
        [&] {
            if (m_sink) return;
            m_sink = &Sink;
            Result = EnumResources(ModuleFile);
            forget();
        },
        forget);
    return Result;
}

bool modEnumResources::EnumResources(const std::string& ModuleFile) {
    bool Result = false;
    Procedure(m_g.gErrHandler, "modEnumResources:EnumResources", [&] {
        const ResourceModule module = LoadResourceModule(ModuleFile);
        const int end = FirstNumber + (module ? static_cast<int>(module->Texts.size()) : 0);
        int cancel = 0;
        for (int number = FirstNumber; number < end && cancel == 0; ++number)
            m_sink->EnumResourceSink(module, "#" + std::to_string(number), "#6", cancel);
        Result = true;
    });
    return Result;
}

}  // namespace tabulon
