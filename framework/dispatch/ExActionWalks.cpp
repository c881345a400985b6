#include "framework/dispatch/ExActionWalks.h"

#include "framework/dispatch/ExActionListBase.h"

#include <algorithm>
#include <utility>

void ExActionWalks::compactLater(ExActionListBase &list)
{
    m_hasWork = true;
    if (std::find(m_toCompact.begin(), m_toCompact.end(), &list) == m_toCompact.end()) {
        m_toCompact.push_back(&list);
    }
}

void ExActionWalks::keepUntilDone(std::shared_ptr<void> lists)
{
    m_hasWork = true;
    m_kept.push_back(std::move(lists));
}

void ExActionWalks::forget(const ExActionListBase &list)
{
    std::erase(m_toCompact, &list);
}

void ExActionWalks::cleanUp()
{
    m_hasWork = false;
    for (ExActionListBase *list : m_toCompact) {
        list->compact();
    }
    m_toCompact.clear();
    m_kept.clear();
}
