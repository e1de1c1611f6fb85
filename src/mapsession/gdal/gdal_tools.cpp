// SPDX-License-Identifier: MIT

#include "mapsession/gdal/gdal_tools.h"

namespace quandrel {

std::string Utf8(const char* text) {
    if (CPLIsUTF8(text, -1)) {
        return text;
    }
    char* const recoded = CPLRecode(text, "CP1252", CPL_ENC_UTF8);
    std::string utf8 = recoded;
    CPLFree(recoded);
    return utf8;
}

std::string CellOf(const OGRFeature& feature, int field) {
    if (!feature.IsFieldSetAndNotNull(field)) {
        return {};
    }
    const OGRFieldDefn& definition = *feature.GetFieldDefnRef(field);
    switch (definition.GetType()) {
    case OFTInteger:
    case OFTInteger64:
        return std::to_string(feature.GetFieldAsInteger64(field));
    case OFTReal:
        return definition.GetSubType() == OFSTFloat32
                   ? NumberText(static_cast<float>(feature.GetFieldAsDouble(field)))
                   : NumberText(feature.GetFieldAsDouble(field));
    default:
        return Utf8(feature.GetFieldAsString(field));
    }
}

SessionError RefusedFile(const std::string& path) {
    std::string text = "The file " + path + " cannot be opened as a table";
    if (const char* const why = CPLGetLastErrorMsg(); why && *why != '\0') {
        text += ": " + Utf8(why);
    }
    return {kSessionFileError, text};
}

} // namespace quandrel
