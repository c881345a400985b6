#include "platform/dicomio/codec/DicomParsing.h"

#include "platform/dicomio/codec/DicomInflating.h"
#include "platform/dicomio/codec/DicomLengthCheck.h"

#include <vtkCallbackCommand.h>
#include <vtkCommand.h>
#include <vtkDICOMItem.h>
#include <vtkDICOMParser.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <string_view>

namespace {

void eraseThrough(std::string &text, const char *mark)
{
    const std::size_t found = text.find(mark);
    if (found != std::string::npos) {
        text.erase(0, found + std::strlen(mark));
    }
}

/// What a VTK message says, without source line, object address and file name; up to the end of the
/// line. Messages that were passed on are decorated several times.
std::string plainText(const char *message)
{
    std::string text = message ? message : "";
    while (text.starts_with("ERROR: ") && text.find("): ") != std::string::npos) {
        eraseThrough(text, "): ");
    }
    text.erase(std::min(text.find('\n'), text.size()));
    if (text.starts_with("At byte offset")) {
        eraseThrough(text, "\": ");
    }
    return text;
}

void forwardMessage(vtkObject *, unsigned long event, void *client, void *text)
{
    static_cast<VtkMessages *>(client)->take(event, static_cast<const char *>(text));
}

} // namespace

void VtkMessages::observe(vtkObject *object)
{
    const vtkNew<vtkCallbackCommand> command;
    command->SetCallback(&forwardMessage);
    command->SetClientData(this);
    object->AddObserver(vtkCommand::ErrorEvent, command);
    object->AddObserver(vtkCommand::WarningEvent, command);
}

void VtkMessages::take(unsigned long event, const char *text)
{
    if (event == vtkCommand::ErrorEvent && m_firstError.empty()) {
        m_firstError = plainText(text);
    }
}

namespace {

/// Leaves files alone whose lengths cannot be. The library checks lengths itself, except inside
/// values of undefined length: there it makes room for up to 4 GB, and goes down to any depth.
class CheckedParser final : public vtkDICOMParser
{
public:
    static CheckedParser *New();
    /// Why the file was left alone; empty when it was not.
    [[nodiscard]] const std::string &fault() const { return m_fault; }
    void parse(const McFilename &file)
    {
        m_isChecked = false;
        m_fault.clear();
        SetErrorCode(0);
        SetFileName(file.c_str());
        Update();
    }

protected:
    /// Everything that is parsed comes through here first. Most files have no undefined length,
    /// and the others are checked once.
    bool FillBuffer(const unsigned char *&begin, const unsigned char *&end) override
    {
        const bool isFilled = vtkDICOMParser::FillBuffer(begin, end);
        if (!m_isChecked && hasUndefinedLength(begin, end)) {
            m_isChecked = true;
            m_fault = impossibleLengthIn(this->FileName);
        }
        if (!m_fault.empty()) {
            begin = end;
            return false;
        }
        return isFilled;
    }

private:
    static bool hasUndefinedLength(const unsigned char *begin, const unsigned char *end)
    {
        const std::string_view bytes(
            reinterpret_cast<const char *>(begin), static_cast<std::size_t>(end - begin));
        return bytes.find("\xff\xff\xff\xff") != std::string_view::npos;
    }

    bool m_isChecked = false;
    std::string m_fault;
};

vtkStandardNewMacro(CheckedParser)

} // namespace

class DicomParser::Private
{
public:
    explicit Private(const vtkDICOMItem *wanted)
    {
        messages.observe(parser);
        messages.observe(data);
        parser->SetMetaData(data);
        if (wanted != nullptr) {
            parser->SetQueryItem(*wanted);
        }
    }
    /// The data may live on, in a result.
    ~Private() { data->RemoveAllObservers(); }
    Private(const Private &) = delete;
    Private &operator=(const Private &) = delete;

    ParsedDicom parsePlain(const McFilename &file);

    VtkMessages messages;
    const vtkNew<vtkDICOMMetaData> data;
    const vtkNew<CheckedParser> parser;
};

ParsedDicom DicomParser::Private::parsePlain(const McFilename &file)
{
    messages.clear();
    data->Initialize();
    parser->parse(file);
    ParsedDicom result;
    result.data = data;
    result.error = parser->fault().empty() ? messages.firstError() : parser->fault();
    if (result.error.empty() && parser->GetErrorCode() != 0) {
        result.error = "The file cannot be read.";
    }
    result.pixelDataFound = parser->GetPixelDataFound();
    result.pixelDataLength = parser->GetPixelDataVL();
    result.pixelDataOffset = parser->GetFileOffset();
    result.fileSize = parser->GetFileSize();
    return result;
}

DicomParser::DicomParser(const vtkDICOMItem *wanted)
    : d(std::make_unique<Private>(wanted))
{ }

DicomParser::~DicomParser() = default;

ParsedDicom DicomParser::parse(const McFilename &file)
{
    ParsedDicom result = d->parsePlain(file);
    if (isDeflated(result.data)) {
        const InflatedDicom inflated(file);
        result = inflated.file().empty() ? result : d->parsePlain(inflated.file());
        result.data->Set(0, DC::TransferSyntaxUID, deflatedSyntax);
    }
    return result;
}

ParsedDicom parseDicom(const McFilename &file)
{
    return DicomParser().parse(file);
}

bool isBinary(vtkDICOMVR type)
{
    static const std::initializer_list<vtkDICOMVR> binary{vtkDICOMVR::OB, vtkDICOMVR::OW,
        vtkDICOMVR::OF, vtkDICOMVR::OD, vtkDICOMVR::OL, vtkDICOMVR::UN};
    return std::find(binary.begin(), binary.end(), type) != binary.end();
}

bool isDeflated(vtkDICOMMetaData *data)
{
    return data->Get(0, DC::TransferSyntaxUID).AsString() == deflatedSyntax;
}
