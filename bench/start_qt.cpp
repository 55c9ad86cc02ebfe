#include <QCoreApplication>

/// What a program with Qt's Core and Xml costs before it does anything.
int main(int argumentCount, char **arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    return 0;
}
