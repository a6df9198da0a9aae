#ifndef NEXO_SAMPLES_REPORT_H
#define NEXO_SAMPLES_REPORT_H

#include "nexo/base/CString.h"

class CAsdFormat;
class CNode;

// What the sample prints; everything goes to standard output as UTF-8.

/// A heading with a rule below it.
void PrintHeading(const CString& title);

/// Name, number, addresses and remarks of a project.
void PrintProject(const CAsdFormat& document);

/// One line for each batch: its articles, and how much of each unit they add up to.
void PrintBatches(const CAsdFormat& document);

/// The articles of a batch that are the most of their unit.
void PrintLargestItems(const CAsdFormat& document, int count);

/// The rooms of a settings tree.
void PrintRooms(const CNode& settings);

#endif
