#pragma once
// The target file added up.

#include "nas2zdt/check/Totals.h"
#include "platform/Worker.h"

#include <optional>
#include <utility>

class CDataPool;

/// Adds up the lines of the file that a run with this model writes, as a host takes them: pressures of plates along
/// their normals by the order of the corners and into solids, corner pressures of a solid's face by their mean, loads
/// on beams by axes whose Z is in the plane of the reference point. Lines of nodes and elements that the file hasn't
/// are none.
T_TOTALS_D TotalFile(const CDataPool& rPool);

/// The same while the file is written. Ends before the model, which must outlive it.
class CFileSums {
  public:
    CFileSums(const CDataPool& rPool, bool bBeside) : m_rPool(rPool), m_bBeside(bBeside) {}

    /// The model is resolved, and won't change.
    void Begin() {
        m_worker.emplace([this] { m_totals = TotalFile(m_rPool); }, m_bBeside);
    }

    /// May be called once.
    T_TOTALS_D Take() {
        if (!m_worker) Begin();
        m_worker->Wait();
        return std::move(m_totals);
    }

  private:
    const CDataPool& m_rPool;
    bool m_bBeside;
    T_TOTALS_D m_totals;
    std::optional<CWorker> m_worker;
};
