// Plain records exchanged with the host through void*.
#ifndef MARKRECORDS_H
#define MARKRECORDS_H

#include <QString>

// One point of a resource curve, handed to QMarkCategoryVirtual::AddResCurveRecord. The host
// allocates it with new; the receiving category owns it from then on.
struct ResCurveRecord {
    int time;     // minutes from the project start at which the period of this point ends
    double value; // amount in use during the period that ends at this point
};

// The calculation record of GetCalculateData / SetCalculateData; owned by the host.
struct CalculateRecord {
    double scoreStd;
    bool locked;
    QString value;
};

#endif // MARKRECORDS_H
