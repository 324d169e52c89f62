// MarkPublic: labels for numbering scoring criteria.
//
// This is the stand-in shipped with MarkRule; a platform that has its own MarkPublic links that
// library in its place.
//  - ConvertIntToUString: Chinese numerals for first-level criteria: 一, 二, … 十, 十一, 二十, 一百零一, …
//    up to 99999; 0 is 零, negative numbers are prefixed with 负, larger numbers fall back to decimals.
//  - ConvertIntToTString: third-level labels: circled numbers ① to ㊿ for 1 to 50, and the number in
//    parentheses, "(51)", for anything else.
#ifndef MARKPUBLIC_H
#define MARKPUBLIC_H

#include <QString>
#include <QtGlobal>

#if defined(MARKPUBLIC_LIBRARY)
#define MARKPUBLIC_EXPORT Q_DECL_EXPORT
#else
#define MARKPUBLIC_EXPORT Q_DECL_IMPORT
#endif

MARKPUBLIC_EXPORT QString ConvertIntToUString(const int& number);
MARKPUBLIC_EXPORT QString ConvertIntToTString(const int& number);

#endif // MARKPUBLIC_H
