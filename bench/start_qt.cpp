#include <QCoreApplication>

/// Measures the start-up cost of a program that links Qt's Core and Xml.
int main(int argumentCount, char **arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    return 0;
}
