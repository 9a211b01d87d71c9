# Turns the comments of a header into those that Doxygen reads.
# SPDX-License-Identifier: MIT
/SPDX-License-Identifier/d
# Doxygen would take these characters for commands of its own.
\~^ *//~s~[\@<>#%]~\\&~g
1s~^// (.*)$~/// \\file\n/// \1~
t
s~^( *)//( *)(Returns|Requires|Owner|Fails): *~\1///\n\1/// @par \3\n\1/// ~
t
s~^( *)//( .*)?$~\1///\2~
t
\~// namespace~b
s~^( *[^ /].*[;,{}]) +// (.*)$~\1  ///< \2~
