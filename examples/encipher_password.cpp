// Writes the "Password" line of a Server.ini for the password that stands in the first line of the standard input:
//
//     encipher_password < password.txt >> Server.ini
//
// The password is not taken from the command line, which every user of the machine can read. Its bytes are stored as
// they come, without the LF or CR LF behind them, and sent to the server as they are. The line hides the password from
// a glance and from nobody else: whoever has the library can read it back, so give the file to its owner alone.
//
// Hosts do not need the cipher, so the shared library does not export it: this program links the archive.

#include "EncipherPassword.h"

#include <iostream>

int main()
{
    std::string password;
    std::getline(std::cin, password);
    if (password.ends_with('\r'))
        password.pop_back();
    const std::optional<std::string> stored = EncipherPassword(password);
    if (!stored) {
        std::cerr << "A password has at most 120 bytes and no zero byte.\n";
        return 1;
    }
    std::cout << "Password=" << *stored << "\r\n";
    return 0;
}
