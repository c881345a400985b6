#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/viewers/ExBaseViewerGroup.h"
#include "framework/viewers/ExViewerDB.h"

#include <memory>
#include <string>

/// Viewers that are linked in one way, with an identifier and text attributes for each viewer. Made
/// and owned by ExViewerDB. A copy has viewers of its own and shares identifier and attributes with
/// its source. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExViewerDBGroup
{
public:
    /// Makes plain groups; what every type starts with.
    class MOVARA_FRAMEWORK_EXPORT Factory : public ExViewerDB::GroupFactory
    {
    public:
        [[nodiscard]] ExViewerDBGroup *create(const std::string &type) const override;
    };

    /// An empty group that knows the attribute ExViewerDB::ATT_ATTACHED, with an empty identifier.
    explicit ExViewerDBGroup(const std::string &type);
    ExViewerDBGroup(const ExViewerDBGroup &) = default;
    ExViewerDBGroup &operator=(const ExViewerDBGroup &) = default;
    virtual ~ExViewerDBGroup();

    [[nodiscard]] const std::string &type() const;
    [[nodiscard]] const std::string &groupId() const;
    void setGroupId(const std::string &id);

    [[nodiscard]] const ExBaseViewerGroup &viewers() const { return m_viewers; }

    /// Number of attribute names.
    [[nodiscard]] int numAttributes() const;
    /// The i-th attribute name in name order; empty when out of range.
    [[nodiscard]] std::string attribute(int i) const;
    /// The viewer's value; empty when the name or the viewer is unknown.
    [[nodiscard]] std::string viewerAttribute(
        const ExBaseViewer *viewer, const std::string &name) const;
    /// Whether the viewer's value is "true".
    [[nodiscard]] bool viewerAttributeAsBool(
        const ExBaseViewer *viewer, const std::string &name) const;
    void setViewerAttribute(
        const ExBaseViewer *viewer, const std::string &name, const std::string &value);

private:
    friend class ExViewerDB;
    struct Data;

    /// Takes the viewer out, with its attributes: another viewer may come to stand at the same
    /// address.
    void removeViewer(const ExBaseViewer *viewer);

    ExBaseViewerGroup m_viewers;
    std::shared_ptr<Data> m_data;
};
