#pragma once
// Pictures of a resolved model as files. Each shows what the target file takes. Files of rInputs aren't overwritten.
// Failures throw CFileException, and then what was at the path stays as it was.

#include "nas2zdt/picture/ColourBy.h"
#include "platform/File.h"
#include "store/DataPool.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CAccount;

/// The ids of the load cases that the target file has, ascending.
std::vector<std::int32_t> FindLoadCases(const CDataPool& rDataPool);

/// An isometric view as SVG files, with a legend that counts what there is of each kind and what couldn't be drawn, and
/// a title for each thing with its ids and values. However large the model, a file has at most some 30,000 faces and
/// lines and 200 marks of a kind; the picture says so where any were joined or left out.
class CSvgPicture {
  public:
    /// Colours by loss need pAccount, the account of the run, which keeps marks. All arguments must outlive this
    /// object.
    explicit CSvgPicture(const CDataPool& rDataPool, E_COLOUR_BY eBy = BY_KIND, const CAccount* pAccount = nullptr);
    ~CSvgPicture();

    /// Draws the model with the loads of one load case, of all without iCase, into sPath under the title sTitle.
    void Write(const std::string& sTitle, const std::string& sPath, const T_INPUTS& rInputs = {},
               std::optional<std::int32_t> iCase = {});

  private:
    struct T_MODEL_D;
    const CDataPool& m_rDataPool;
    std::unique_ptr<T_MODEL_D> m_pModel;
};

/// What isn't in a .vtu file.
struct T_LEFTOUT_D {
    std::size_t nPARTS = 0; // elements and links of which a node doesn't exist
    std::size_t nCASES = 0; // load cases behind those that it has
};

/// Writes rDataPool into sPath as a VTK unstructured grid: a .vtu file, XML with arrays in base64. Corners only, as in
/// the target file. docs/pictures.md tells the arrays. With iCase, the loads of that case alone; without it, those of
/// the first cases, at most 16, or as many as make 4 million nodes.
T_LEFTOUT_D WriteVtu(const CDataPool& rDataPool, const std::string& sPath, const T_INPUTS& rInputs = {},
                     std::optional<std::int32_t> iCase = {});
