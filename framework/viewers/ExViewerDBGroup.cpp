#include "framework/viewers/ExViewerDBGroup.h"

#include "platform/toolkit/QxDom.h"

#include <iterator>
#include <map>

struct ExViewerDBGroup::Data
{
    std::string type;
    std::string groupId;
    std::map<std::string, std::map<const ExBaseViewer *, std::string>> attributes;
};

ExViewerDBGroup *ExViewerDBGroup::Factory::create(const std::string &type) const
{
    return new ExViewerDBGroup(type);
}

ExViewerDBGroup::ExViewerDBGroup(const std::string &type)
    : m_data(std::make_shared<Data>())
{
    m_data->type = type;
    m_data->attributes[ExViewerDB::ATT_ATTACHED];
}

ExViewerDBGroup::~ExViewerDBGroup() = default;

const std::string &ExViewerDBGroup::type() const
{
    return m_data->type;
}

const std::string &ExViewerDBGroup::groupId() const
{
    return m_data->groupId;
}

void ExViewerDBGroup::setGroupId(const std::string &id)
{
    m_data->groupId = id;
}

int ExViewerDBGroup::numAttributes() const
{
    return static_cast<int>(m_data->attributes.size());
}

std::string ExViewerDBGroup::attribute(int i) const
{
    return i >= 0 && i < numAttributes() ? std::next(m_data->attributes.begin(), i)->first
                                         : std::string();
}

std::string ExViewerDBGroup::viewerAttribute(
    const ExBaseViewer *viewer, const std::string &name) const
{
    const auto values = m_data->attributes.find(name);
    if (values == m_data->attributes.end()) {
        return {};
    }
    const auto value = values->second.find(viewer);
    return value == values->second.end() ? std::string() : value->second;
}

bool ExViewerDBGroup::viewerAttributeAsBool(
    const ExBaseViewer *viewer, const std::string &name) const
{
    return QxDom::qStringToBool(QString::fromStdString(viewerAttribute(viewer, name))) == 1;
}

void ExViewerDBGroup::setViewerAttribute(
    const ExBaseViewer *viewer, const std::string &name, const std::string &value)
{
    m_data->attributes[name].insert_or_assign(viewer, value);
}

void ExViewerDBGroup::removeViewer(const ExBaseViewer *viewer)
{
    while (m_viewers.contains(viewer)) {
        m_viewers.subtract(viewer);
    }
    for (auto &[name, values] : m_data->attributes) {
        values.erase(viewer);
    }
}
