#pragma once

#include <Vantrel/ModuleInterface.h>

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// The materials of an SQLite file, read whole when it is opened. The file is free again
/// afterwards: it can be replaced while the program runs.
class MaterialDatabase final : public IRuleDatabase
{
public:
    /// Null if the file is missing, locked, no database, or has no table of materials.
    static std::unique_ptr<MaterialDatabase> Open(const std::wstring& path);

    void GetMaterialNames(const std::wstring& group, std::list<std::wstring>& names) override;
    bool GetMaterialProperty(const std::wstring& material, const std::wstring& property, double& value) override;

private:
    struct Material
    {
        std::wstring name;
        std::wstring group;
        std::map<std::wstring, double> properties;
    };

    explicit MaterialDatabase(std::vector<Material> materials);

    std::vector<Material> m_materials; // in alphabetical order
};
