#include "tests/platform/dicomio/DicomFixture.h"
#include "tests/support/Files.h"

#include "platform/dicomio/DicomWriter.h"

#include <numeric>

namespace {

/// Attributes without which no image can be read.
constexpr std::pair<const char *, const char *> basicAttributes[]{
    {"G0008-0016", "1.2.840.10008.5.1.4.1.1.2"},
    {"G0008-0060", "CT"},
    {"G0010-0010", "Doe^Jane"},
    {"G0010-0020", "ID1"},
    {"G0010-0030", "19700102"},
    {"G0020-000D", "2.25.1"},
    {"G0020-000E", "2.25.1.1"},
    {"G0020-0052", "2.25.1.9"},
    {"G0020-0037", "1\\0\\0\\0\\1\\0"},
    {"G0028-0002", "1"},
    {"G0028-0004", "MONOCHROME2"},
    {"G0028-0010", "3"},
    {"G0028-0011", "4"},
    {"G0028-0030", "0.5\\0.25"},
    {"G0028-0100", "16"},
    {"G0028-0101", "12"},
    {"G0028-0102", "11"},
    {"G0028-0103", "0"},
};

} // namespace

McHandle<HxParamBundle> DicomFixture::attributes(int instance, Changes changes)
{
    std::map<std::string, std::string> values;
    for (const auto &[name, value] : basicAttributes) {
        values[name] = value;
    }
    values["G0008-0018"] = "2.25.1.1." + std::to_string(instance);
    values["G0020-0013"] = std::to_string(instance);
    values["G0020-0032"] = "0\\0\\0";
    for (const auto &[name, value] : changes) {
        values[name] = value;
    }
    McHandle<HxParamBundle> bundle(new HxParamBundle);
    for (const auto &[name, value] : values) {
        if (!value.empty()) {
            bundle->set(name, value);
        }
    }
    return bundle;
}

std::vector<std::int16_t> DicomFixture::ramp(int first, int count)
{
    std::vector<std::int16_t> values(static_cast<std::size_t>(count));
    std::iota(values.begin(), values.end(), static_cast<std::int16_t>(first));
    return values;
}

McFilename DicomFixture::addSlice(int instance, double z, Changes changes)
{
    const McHandle<HxParamBundle> bundle = attributes(instance, changes);
    const bool isPlaced = bundle->find("G0020-0032") == "0\\0\\0";
    if (isPlaced) {
        bundle->set("G0020-0032", "-10\\-20\\" + std::to_string(z));
    }
    return add(std::to_string(instance) + ".dcm", *bundle, ramp(100 * instance));
}

void DicomFixture::addStack(int count, Changes changes)
{
    for (int i = 1; i <= count; ++i) {
        addSlice(i, i, changes);
    }
}

void DicomFixture::addStackAt(std::initializer_list<double> heights, Changes changes)
{
    int instance = 0;
    for (const double height : heights) {
        addSlice(++instance, height, changes);
    }
}

McFilename DicomFixture::add(const std::string &name, const HxParamBundle &attributes,
    const std::vector<std::int16_t> &pixels)
{
    return addBytes(name, attributes, std::as_bytes(std::span(pixels)));
}

McFilename DicomFixture::addBytes(
    const std::string &name, const HxParamBundle &attributes, std::span<const std::byte> pixels)
{
    const std::string error = DicomWriter::write(path(name), attributes, pixels);
    if (!error.empty()) {
        qFatal("%s: %s", name.c_str(), error.c_str());
    }
    return path(name);
}

McFilename DicomFixture::addText(const std::string &name, const QByteArray &content)
{
    writeFile(QString::fromStdString(path(name).string()), content);
    return path(name);
}

QByteArray DicomFixture::read(const std::string &name) const
{
    return readFile(QString::fromStdString(path(name).string()));
}

McHandle<Zel::DicomDirectoryEntry> DicomFixture::onlySeries()
{
    m_patients = scan().patients;
    if (m_patients.size() != 1 || m_patients.first()->children().size() != 1
        || m_patients.first()->children().first()->children().size() != 1) {
        qFatal("the folder holds not exactly one series");
    }
    return m_patients.first()->children().first()->children().first();
}
