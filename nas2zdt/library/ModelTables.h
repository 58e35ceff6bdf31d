#pragma once
// A resolved model as arrays: the lines of the target file's sections with all digits, in the order of the file.

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

class CDataPool;

/// Values of one type, nWIDTH of them to a row.
struct T_MODELCOLUMN_D {
    const char* sNAME;
    std::size_t nWIDTH;
    std::variant<std::vector<std::int32_t>, std::vector<double>> values;

    std::size_t CountRows() const {
        return std::visit([](const auto& r) { return r.size(); }, values) / nWIDTH;
    }
};

/// Lines of one kind.
struct T_MODELTABLE_D {
    const char* sNAME;
    std::optional<std::int32_t> iCASE; // the load case that it belongs to, if any
    std::vector<T_MODELCOLUMN_D> aCOLUMNS;

    std::size_t CountRows() const { return aCOLUMNS.front().CountRows(); }
};

/// Tables that belong to no load case are always there, those of a load case if they have rows.
class CModelTables {
  public:
    explicit CModelTables(const CDataPool& rPool);

    const std::vector<T_MODELTABLE_D>& GetTables() const { return m_aTables; }

    /// Null if there is none. iCase is 0 for a table that belongs to no load case.
    const T_MODELCOLUMN_D* Find(std::string_view sTable, std::int32_t iCase, std::string_view sColumn) const;

  private:
    std::vector<T_MODELTABLE_D> m_aTables;
    std::map<std::pair<std::string_view, std::int32_t>, std::size_t> m_mapTables; // places by name and load case
};
