#pragma once

#include <cstddef>

/// What a receiver and the walks know of a list that holds actions, whatever its signal is.
class ExActionListBase
{
public:
    ExActionListBase() = default;
    ExActionListBase(const ExActionListBase &) = delete;
    ExActionListBase &operator=(const ExActionListBase &) = delete;

    /// The receiver of the action at @p position lets it go: the entry stays in place and is dead.
    virtual void clearAction(std::size_t position) = 0;
    /// The receiver keeps the place of the action at @p position under a new index.
    virtual void setPlaceIndex(std::size_t position, std::size_t placeIndex) = 0;
    /// Removes the dead entries; the order of the others stays. Not while a walk runs.
    virtual void compact() = 0;
    /// The map that the list belongs to; only compared.
    [[nodiscard]] virtual const void *owner() const = 0;

protected:
    ~ExActionListBase() = default;
};
