// Encoded sources on their way through an upload: one that is decoded before it goes to
// the device, and one that is written out as a `.bae` file instead of going there. Each
// way ends in one line of the terminal. Interface thread; a key derivation blocks it.
#pragma once

// True when what is to be uploaded comes from a file that holds an encoded source.
bool SourceIsEncoded();

// Asks for the passphrase, up to three times, and puts the plain text in place of the
// source. False, and the
// source as it was, when the file is not what it should be or the passphrase is not the one.
bool DecodeSource();

// True when the first line asks for an encoded file in place of an upload.
bool SourceAsksForEncoding();

// Asks for a passphrase twice and writes the source, without the line that asks for it, to
// the `.bae` file beside its own.
void WriteEncodedSource();
