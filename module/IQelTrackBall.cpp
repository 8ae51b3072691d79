#include "IQelTrackBall.h"

IQelTrackBall::IQelTrackBall() = default;

IQelTrackBall::IQelTrackBall(const IQelTrackBall& other) = default;

IQelTrackBall& IQelTrackBall::operator=(const IQelTrackBall& other) = default;

IQelTrackBall::~IQelTrackBall() = default;
