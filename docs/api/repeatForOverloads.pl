#!/usr/bin/perl
# Input filter of Doxygen: in the headers a comment stands for all overloads that follow the one below it, so each of
# them gets it. Lines stay where they are, for the places in warnings.
use strict;
use warnings;

my ($text, $name) = ('', ''); # the last comment, and the function that it stands above
my $is_fresh = 0;             # nothing stands below the comment yet
my $depth = 0;                # of what is open inside a declaration
my $is_open = 0;              # the declaration goes on
my $template = '';            # lines held back: the head of a template belongs to the function below it

sub flush_template {
    print $template;
    $template = '';
}

while (my $line = <>) {
    my $code = $line;
    $code =~ s/"(?:[^"\\]|\\.)*"|'(?:[^'\\]|\\.)'//g;
    $code =~ s/\/\/.*//;
    my $balance = (() = $code =~ /[({]/g) - (() = $code =~ /[)}]/g);

    if ($is_open) {
        $depth += $balance;
        $is_open = 0 if $depth <= 0 && $code =~ /[;}]\s*$/;
    }
    elsif ($line =~ /^\s*\/\/\/ \@[{}]/) {
        flush_template();
        ($text, $name, $is_fresh) = ('', '', 0);
    }
    elsif ($line =~ /^\s*\/\/\/(?!<) ?(.*)/) {
        flush_template();
        $text = $is_fresh ? "$text $1" : $1;
        $is_fresh = 1;
        $name = '';
    }
    elsif ($code =~ /^\s*template\s*</) {
        $template .= $line;
        next;
    }
    elsif ($code =~ /^\s*[{}]|^\s*(?:class|struct|union|enum|namespace)\b[^;]*$/) {
        ($text, $name, $is_fresh) = ('', '', 0);
    }
    elsif ($code =~ /(\boperator\W+?|\w+)\s*\(/ && $code !~ /^\s*#/) {
        if ($is_fresh) {
            $name = $1;
        }
        elsif ($text ne '' && $1 eq $name && $line !~ /\/\/\/</) {
            my $repeated = $text =~ s/\*\//* \//gr;
            my $head = $template . $line;
            $head =~ s/^(\s*)/$1\/** $repeated *\/ /;
            $template = '';
            $line = $head;
        }
        $is_fresh = 0;
        $depth = $balance;
        $is_open = !($depth <= 0 && $code =~ /[;}]\s*$/);
    }
    flush_template();
    print $line;
}
