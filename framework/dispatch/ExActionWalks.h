#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <memory>
#include <vector>

class ExActionListBase;

/// The walks that run over action lists of one kind, nested ones counted, and what waits for the
/// outermost to end: lists with dead entries, and the lists of maps that were destroyed under a
/// walk. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExActionWalks
{
public:
    /// A walk, for its scope.
    class Guard
    {
    public:
        explicit Guard(ExActionWalks &walks)
            : m_walks(walks)
        {
            ++m_walks.m_depth;
        }
        ~Guard()
        {
            if (--m_walks.m_depth == 0 && m_walks.m_hasWork) {
                m_walks.cleanUp();
            }
        }
        Guard(const Guard &) = delete;
        Guard &operator=(const Guard &) = delete;

    private:
        ExActionWalks &m_walks;
    };

    /// Whether any walk runs.
    [[nodiscard]] bool isRunning() const { return m_depth > 0; }
    /// Has the list compacted when the outermost walk ends. Only while a walk runs.
    void compactLater(ExActionListBase &list);
    /// Keeps @p lists until the outermost walk ends. Only while a walk runs.
    void keepUntilDone(std::shared_ptr<void> lists);
    /// The list is going.
    void forget(const ExActionListBase &list);

private:
    void cleanUp();

    int m_depth = 0;
    bool m_hasWork = false;
    std::vector<ExActionListBase *> m_toCompact;
    std::vector<std::shared_ptr<void>> m_kept;
};
