// The ID3v1 tag is the last 128 bytes of a music file and holds single-byte text in fields of fixed width
// (http://id3.org/ID3v1). Offsets count from the first byte of the marker.
#pragma once

namespace id3v1 {

inline constexpr int kTagLength = 128;
inline constexpr int kTitleOffset = 3;
inline constexpr int kArtistOffset = 33;
inline constexpr int kAlbumOffset = 63;
inline constexpr int kYearOffset = 93;
inline constexpr int kCommentOffset = 97;
inline constexpr int kTrackOffset = 126;
inline constexpr int kGenreOffset = 127;

inline constexpr int kTextLength = 30; // title, artist, album
inline constexpr int kYearLength = 4;
inline constexpr int kCommentLength = 29; // as a tag is written; the byte behind it is the track

} // namespace id3v1
