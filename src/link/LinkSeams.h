// What tests put in place of the world under the link. No code of the program includes it but
// the files that hold the seams. Interface thread.
#pragma once

// Makes an open descriptor (0 for none) the serial link, or the TCP link, closing the one
// before: a socket pair, or a pty.
void AdoptSerialLink(int fd);
void AdoptTcpLink(int fd);

// In place of ioctl(2) on the modem lines of a port, which a pty does not have; nullptr for
// the kernel's own. The result is that of ioctl(2).
void InstallModemIoctl(int (*procedure)(int fd, unsigned long request, int* bits));
