#include "platform/dicomio/DicomParsing.h"

#include "platform/dicomio/DicomInflating.h"

#include <vtkCallbackCommand.h>
#include <vtkCommand.h>
#include <vtkDICOMDictionary.h>
#include <vtkDICOMParser.h>
#include <vtkNew.h>

#include <algorithm>
#include <cstring>
#include <mutex>

namespace {

constexpr const char *deflatedSyntax = "1.2.840.10008.1.2.1.99";

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

void prepareDicomParsing()
{
    // The object factory and the dictionaries fill static tables on first use, without a lock.
    static std::once_flag once;
    std::call_once(once, [] {
        const vtkNew<vtkDICOMParser> parser;
        const vtkNew<vtkDICOMMetaData> data;
        vtkDICOMDictionary::FindDictEntry(vtkDICOMTag(0x0010, 0x0010));
    });
}

namespace {

ParsedDicom parsePlain(const McFilename &file)
{
    ParsedDicom result;
    result.data = vtkSmartPointer<vtkDICOMMetaData>::New();
    VtkMessages messages;
    const vtkNew<vtkDICOMParser> parser;
    messages.observe(parser);
    messages.observe(result.data);
    parser->SetFileName(file.c_str());
    parser->SetMetaData(result.data);
    parser->Update();
    result.data->RemoveAllObservers();
    result.error = messages.firstError();
    if (result.error.empty() && parser->GetErrorCode() != 0) {
        result.error = "The file cannot be read.";
    }
    result.pixelDataFound = parser->GetPixelDataFound();
    result.pixelDataLength = parser->GetPixelDataVL();
    result.pixelDataOffset = parser->GetFileOffset();
    result.fileSize = parser->GetFileSize();
    return result;
}

} // namespace

ParsedDicom parseDicom(const McFilename &file)
{
    prepareDicomParsing();
    ParsedDicom result = parsePlain(file);
    if (isDeflated(result.data)) {
        const InflatedDicom inflated(file);
        result = inflated.file().empty() ? result : parsePlain(inflated.file());
        result.data->Set(0, DC::TransferSyntaxUID, deflatedSyntax);
    }
    return result;
}

bool isDeflated(vtkDICOMMetaData *data)
{
    return data->Get(0, DC::TransferSyntaxUID).AsString() == deflatedSyntax;
}
