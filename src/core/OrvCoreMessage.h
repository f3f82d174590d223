// The messages the library sends to the add-in's document object through
// OrvObject::SendOrvCoreMessage. `param` carries the address of the answer or argument.
#pragma once

enum ORV_CORE_MESSAGE_ID : int {
    ORV_MSG_GET_DOC_READ_STORAGE_UNITS = 201, // float, out
    ORV_MSG_SET_DOC_READ_STORAGE_UNITS = 202, // float, in
    ORV_MSG_SET_DOC_MODIFIED_FLAG = 203,      // int, in
    ORV_MSG_IS_DOC_MODIFIED = 204,            // int, out
    ORV_MSG_IS_DOC_UNITS_MM = 205,            // int, out
    ORV_MSG_GET_DOC_UNITS = 206,              // int, out
    ORV_MSG_GET_DOC_TITLE = 227,              // CString, out
    ORV_MSG_SETUP_UNITS_CONVERSION = 247,     // OrvUnitsConversion, in and out
    ORV_MSG_IS_FEAT_TREE_ACTIVE = 269,        // int, out
    ORV_MSG_IS_OPER_TREE_ACTIVE = 270,        // int, out
    ORV_MSG_IS_TOOL_TREE_ACTIVE = 271,        // int, out
    ORV_MSG_GET_SHOW_EXCEPTION_MSG = 275,     // int, in and out
    ORV_MSG_SET_SHOW_EXCEPTION_MSG = 276,     // int, in
    ORV_MSG_REMOVE_NODE_FROM_SELECTION = 284, // ui_OrvObject* passed as the value itself
    ORV_MSG_GET_DOC_SERVICE_PACK = 290,       // CString, out
};
