#pragma once

// What the program and its clipboard holder agree on. The program starts the
// holder with a memory file on descriptor kContentFd and one end of a socket
// pair on kReportFd, and writes the content while the holder starts and
// connects to the display. Then it sends kContentReady (or closes its end:
// nothing to hold), and the holder answers with one byte once it owns
// CLIPBOARD or has given up.
namespace qpt::holder {

inline constexpr char kProgramName[] = "QptClipboard";

inline constexpr int kContentFd = 3;
inline constexpr int kReportFd = 4;

// The first argument names the content: a BMP file, or UTF-8 text.
inline constexpr char kPictureSwitch[] = "--picture";
inline constexpr char kTextSwitch[] = "--text";
// Optional, followed by the path of the program's log.
inline constexpr char kLogSwitch[] = "--log";

inline constexpr char kContentReady = 'R';
inline constexpr char kReportOwned = 'O';
inline constexpr char kReportFailed = 'F';

// Taking the selection is tried this many times, this far apart, before the
// holder reports that the clipboard could not be had.
inline constexpr int kOwnershipTries = 20;
inline constexpr int kOwnershipRetryMs = 100;

}  // namespace qpt::holder
