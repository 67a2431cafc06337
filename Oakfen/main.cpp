#include "Oakfen/Widgets/Application.h"

int main(int argumentCount, char** arguments) {
    return oakfen::runApplication(argumentCount, arguments);
}
