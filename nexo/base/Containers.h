#ifndef NEXO_BASE_CONTAINERS_H
#define NEXO_BASE_CONTAINERS_H

// The container types of the interface in one place.
//
//     CArray, CArrayEx                    nexo/base/CArray.h
//     CList, CPtrList, CTypedPtrList      nexo/base/CList.h
//     CMap                                nexo/base/CMap.h
//     CStringArray, CStringList, CMapStringToString
//                                         nexo/base/StringContainers.h

#include "nexo/base/CArray.h"
#include "nexo/base/CList.h"
#include "nexo/base/CMap.h"
#include "nexo/base/StringContainers.h"

#endif
