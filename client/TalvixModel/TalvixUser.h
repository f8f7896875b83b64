#pragma once

/// The user who is signed in to the platform.
///
/// A plain value: copying it copies the record. The client fills it in `KrxClient::getCurUserInfo`.
class TalvixUser
{
public:
    /// Number of the user on the platform, sent as `userId` with most requests. 0 while nobody is signed in.
    int get_id() const { return m_id; }
    void set_id(int id) { m_id = id; }

private:
    int m_id = 0;
};
