#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostics/globals.h"

namespace tabulon {

/// A library of texts: a file with one text a line. The first one has the number 101.
struct ResourceLibrary {
    std::string File;
    std::vector<std::string> Texts;
};

using ResourceModule = std::shared_ptr<const ResourceLibrary>;

/// Null when there is no such file, or when it cannot be read.
ResourceModule LoadResourceModule(const std::string& File);

/// The text with that number; empty when there is none.
std::string LoadResourceString(const ResourceModule& Module, int Number);

/// What a number among the types of resources stands for.
std::string_view ResourceTypeName(int Number);

/// Is shown the resources of a library. Names and types that are numbers begin with "#".
class IEnumResources {
  public:
    virtual ~IEnumResources() = default;
    /// Setting Cancel to anything but 0 ends the walk.
    virtual void EnumResourceSink(const ResourceModule& Module, const std::string& ResourceName,
                                  const std::string& ResourceType, int& Cancel) = 0;
};

/// Walks the resources of a library.
class modEnumResources {
  public:
    explicit modEnumResources(Globals& g) : m_g(g) {}

    /// False while another walk goes on. A library that is not there has no resources.
    bool EnumerateResources(IEnumResources& Sink, const std::string& ModuleFile);

  private:
    bool EnumResources(const std::string& ModuleFile);

    Globals& m_g;
    IEnumResources* m_sink = nullptr;
};

}  // namespace tabulon
