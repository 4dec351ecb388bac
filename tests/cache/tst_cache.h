#pragma once

#include <QObject>

/// The stream cache, crc64 and the sprite codecs; one slot group per source file.
class TestCache : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    // tst_codecs.cpp
    void crc64MatchesBitwiseDefinition();
    void rle8Packets_data();
    void rle8Packets();
    void rle8Encoding_data();
    void rle8Encoding();
    void rle8TrueColourRows();
    void rle5Packets_data();
    void rle5Packets();
    void roundTrips_data();
    void roundTrips();
    void damagedStreamsStayInsideTheImage();

    // tst_lz5.cpp
    void lz5Packets_data();
    void lz5Packets();
    void lz5EncoderPacketChoices();
    void lz5MatcherAgreesWithExhaustiveSearch();

    // tst_streamcache.cpp
    void nullAndEmptyItems();
    void memoryAndDiskGiveTheSameBytes_data();
    void memoryAndDiskGiveTheSameBytes();
    void diskFileStaysHoleFree();
    void findAcrossEncodings();
    void isEqualAcrossEncodings();
    void clearRecyclesItems();

    // tst_realsprites.cpp
    void realSpritesRoundTrip();
};
