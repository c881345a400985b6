#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/notification/ExNotificationTypes.h"

class ExBaseViewer;
class ExNotifiable;

/// What is published when something happens in the application: a small value, copied everywhere.
/// Owns nothing that it points to.
class MOVARA_FRAMEWORK_EXPORT ExNotification
{
public:
#define MOVARA_ENUMERATOR(name, number) name = (number),
    /// What happened. UNSPECIFIC is the wildcard to subscribe to everything; NONE ends a list of
    /// types.
    enum Type : int { MOVARA_NOTIFICATION_TYPES(MOVARA_ENUMERATOR) };
#undef MOVARA_ENUMERATOR

    /// The smallest and the largest type.
    static constexpr int firstType = UNSPECIFIC;
    static constexpr int lastType = ABOUT_TO_SHOW_CONTEXTMENU;

    /// @param viewer the viewer concerned, may be null.
    /// @param tool the sender, so that a subscriber can tell what it sent itself; may be null.
    /// @param data an opaque payload whose meaning depends on the type; may be null.
    constexpr ExNotification(Type type = NONE, ExBaseViewer *viewer = nullptr,
        const ExNotifiable *tool = nullptr, void *data = nullptr)
        : m_type(type)
        , m_viewer(viewer)
        , m_tool(tool)
        , m_data(data)
    { }

    [[nodiscard]] constexpr Type type() const
    {
        return m_type;
    }
    [[nodiscard]] constexpr ExBaseViewer *viewer() const
    {
        return m_viewer;
    }
    [[nodiscard]] constexpr const ExNotifiable *tool() const
    {
        return m_tool;
    }
    [[nodiscard]] constexpr void *data() const
    {
        return m_data;
    }
    /// Replaces the payload.
    constexpr void dataSet(void *data)
    {
        m_data = data;
    }

    /// Equal in all four fields; the deferred queue merges equal notifications.
    friend constexpr bool operator==(const ExNotification &, const ExNotification &) = default;

    /// Whether the type is in range and a type that concerns one viewer comes with a viewer. The
    /// types around the enabling of viewer groups concern no single viewer, although their
    /// neighbours do.
    [[nodiscard]] bool isValid() const;

    /// The enumerator's name; "NONE" for a value out of range.
    [[nodiscard]] static const char *Type2String(Type type);

private:
    Type m_type;
    ExBaseViewer *m_viewer;
    const ExNotifiable *m_tool;
    void *m_data;
};
