# without_time.pl FILE.tlb: the compiler of interface definitions writes the time of day into a type
# library, as a text and as a number. Without it the same definition gives the same file.
local $/;
my $file = shift;
open(my $in, '<:raw', $file) or die "$file: $!";
my $library = <$in>;
close($in);
$library =~ s/(Created by WIDL version [0-9.]+ at ).{24}(\nW*\x13\0).{4}/$1Thu Jan  1 00:00:00 1970$2\0\0\0\0/s
  or die "$file: the time was not found";
open(my $out, '>:raw', $file) or die "$file: $!";
print $out $library;
close($out) or die "$file: $!";
