#include "support/SdkPrinters.h"

namespace {

template <typename E, std::size_t N>
void printName(E value, const char* const (&names)[N], std::ostream* os) {
    const auto index = static_cast<long>(value);
    if (index >= 0 && static_cast<std::size_t>(index) < N)
        *os << names[index];
    else
        *os << "<unknown " << index << ">";
}

}  // namespace

void PrintTo(VexSetValueReturnCode_e code, std::ostream* os) {
    static const char* const names[] = {"VexSetValue_Ok", "VexSetValue_DuplicateValue",
                                        "VexSetValue_InvalidCommandOption",
                                        "VexSetValue_InvalidValue", "VexSetValue_ContextError"};
    printName(code, names, os);
}

void PrintTo(VexGetValueReturnCode_e code, std::ostream* os) {
    static const char* const names[] = {"VexGetValue_Ok", "VexGetValue_InvalidPath",
                                        "VexGetValue_WrongType", "VexGetValue_ContextError"};
    printName(code, names, os);
}

void PrintTo(VexPlotType_e type, std::ostream* os) {
    static const char* const names[] = {"VexPlotType_Sketch", "VexPlotType_Cartesian3D",
                                        "VexPlotType_Cartesian2D", "VexPlotType_XYLine",
                                        "VexPlotType_PolarLine"};
    printName(type, names, os);
}

void PrintTo(VexMessageBoxType_e type, std::ostream* os) {
    static const char* const names[] = {"VexMessageBox_Error", "VexMessageBox_Warning",
                                        "VexMessageBox_Information", "VexMessageBox_Question",
                                        "VexMessageBox_YesNo"};
    printName(type, names, os);
}

void PrintTo(VexSelectFileOption_e option, std::ostream* os) {
    static const char* const names[] = {
        "VexSelectFile_ReadSingleFile", "VexSelectFile_ReadMultiFile",
        "VexSelectFile_ReadSingleFileNoList", "VexSelectFile_WriteFile"};
    printName(option, names, os);
}

namespace vexhost {

void PrintTo(StyleStore::ValueType type, std::ostream* os) {
    static const char* const names[] = {"Double", "Int", "Bool", "String"};
    printName(type, names, os);
}

void PrintTo(Bookkeeping::Kind kind, std::ostream* os) {
    static const char* const names[] = {"String", "Array", "Set", "StringList"};
    printName(kind, names, os);
}

void PrintTo(UserDialogs::Kind kind, std::ostream* os) {
    static const char* const names[] = {"ErrorDialog",    "ErrorBox",    "WarningBox",
                                        "InformationBox", "QuestionBox", "YesNoBox"};
    printName(kind, names, os);
}

}  // namespace vexhost
