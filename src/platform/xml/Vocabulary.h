#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/xml/Document.h"

namespace ostrand {

// Lookups by name, each the first match in document order of the path that stands behind it. An empty
// document is error 91; a double quote in a name is error 5, as it would be in the path.

Node parameter(const Document& doc, std::string_view name);          // data:dtm/.../data:parameter
Node parameterAnywhere(const Document& doc, std::string_view name);  // //data:parameter
Node mapping(const Document& doc, std::string_view name);            // data:dtm/data:mappedParams/data:mappedParam
Node group(const Document& doc, std::string_view name);              // data:dtm/data:requestGroups/data:requestGroup
Node item(const Document& doc, std::string_view name);               // comm:dtm/comm:communicationResponse/comm:item
Node itemAnywhere(const Document& doc, std::string_view name);       // //comm:item

// The mapping of a parameter: by its whole name, else by the lower-cased rest of the name from a capital or
// digit on, the shortest rest first ("recipe1PulpType" finds "pulpType" where there is no "type").
Node mappingByTail(const Document& doc, std::string_view parameterName);

// comm:dtm/comm:communicationResponse, and the first one anywhere in the document.
Node response(const Document& doc);
Node responseAnywhere(const Document& doc);

// The attribute of the first element of this name that bears it, anywhere in the document: //element/@attribute.
// It ends at the first one, where a path would look through the whole tree.
std::optional<std::string> attributeAnywhere(const Document& doc, const char* element, const char* attribute);

// The name of the group in which a parameter is at home: its only group, or the first that holds it with
// no `clone` or with "0". A parameter of several groups that is a clone in all of them has none: an empty text.
std::string homeGroup(const Document& doc, std::string_view parameterName);

// The address that the communication documents bear.
inline constexpr std::string_view kCommunicationSchema = "x-schema:TAVCommunicationSchema.xml";

}  // namespace ostrand
